// SPDX-License-Identifier: MIT
#include "platform/rtfd/AttachmentNames.h"

namespace platform {

namespace {

constexpr qsizetype maximumBytes = 255;
// What is longer is taken for a part of the name that has a dot in it.
constexpr qsizetype longestExtension = 32;

QString comparedForm(const QString& name)
{
    // Folding can compose or leave accents anew, so the form is taken again after it.
    return name.normalized(QString::NormalizationForm_D)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_D);
}

// The position of the extension's dot; the length when there is no extension.
qsizetype extensionStart(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot <= 0 || dot == name.size() - 1 || name.size() - dot > longestExtension)
        return name.size();
    return dot;
}

QString withoutHalfCharacter(QString text)
{
    if (!text.isEmpty() && text.back().isHighSurrogate())
        text.chop(1);
    return text;
}

// The stem cut so that it and what follows fit into a file name.
QString joined(const QString& stem, const QString& end)
{
    qsizetype room = maximumBytes - end.toUtf8().size();
    if (stem.toUtf8().size() <= room)
        return stem + end;
    qsizetype units = 0;
    while (units < stem.size()) {
        const QChar unit = stem.at(units);
        const bool isPair = unit.isHighSurrogate();
        const qsizetype bytes = isPair                   ? 4
                                : unit.unicode() < 0x80  ? 1
                                : unit.unicode() < 0x800 ? 2
                                                         : 3;
        if (bytes > room)
            break;
        room -= bytes;
        units += isPair ? 2 : 1;
    }
    return withoutHalfCharacter(stem.left(units)) + end;
}

} // namespace

AttachmentNames::AttachmentNames(const QStringList& reservedNames)
{
    for (const QString& name : reservedNames)
        m_taken.insert(comparedForm(name));
}

bool AttachmentNames::take(const QString& name)
{
    const QString compared = comparedForm(name);
    if (m_taken.contains(compared))
        return false;
    m_taken.insert(compared);
    return true;
}

QString AttachmentNames::safeName(const QString& preferredName)
{
    // Before line breaks become visible: one behind the extension would spoil it.
    const QString trimmedName = preferredName.trimmed();
    QString name;
    name.reserve(trimmedName.size());
    for (qsizetype index = 0; index < trimmedName.size(); ++index) {
        const QChar unit = trimmedName.at(index);
        const bool isPair = unit.isHighSurrogate() && index + 1 < trimmedName.size() &&
                            trimmedName.at(index + 1).isLowSurrogate();
        if (isPair) {
            name += unit;
            name += trimmedName.at(++index);
        } else if (unit == u'/' || unit < u' ' || unit == u'\x7F' || unit.isSurrogate()) {
            name += u'-';
        } else {
            name += unit;
        }
    }
    if (name.isEmpty() || name == u"." || name == u"..")
        return QStringLiteral("Attachment");
    const qsizetype dot = extensionStart(name);
    return joined(name.left(dot), name.mid(dot));
}

QString AttachmentNames::uniqueName(const QString& preferredName)
{
    QString name = safeName(preferredName);
    if (take(name))
        return name;
    const qsizetype dot = extensionStart(name);
    const QString stem = name.left(dot);
    const QString extension = name.mid(dot);
    // Remembered, so that a thousand files of one name do not try a thousand numbers each.
    int& number = m_nextNumbers[comparedForm(name)];
    for (;;) {
        QString candidate = joined(stem, QStringLiteral("-%1").arg(++number) + extension);
        if (take(candidate))
            return candidate;
    }
}

} // namespace platform
