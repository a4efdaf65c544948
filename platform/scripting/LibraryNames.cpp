// SPDX-License-Identifier: MIT
#include "platform/scripting/LibraryNames.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"

namespace platform {

namespace {

QString comparableName(const QString& name)
{
    return name.normalized(QString::NormalizationForm_D).toCaseFolded();
}

// Room for a blank and any number.
constexpr qsizetype numberBytes = 11;
// An extension that leaves no room for a stem is none.
constexpr qsizetype maximumExtensionBytes = 64;

} // namespace

QString safeFileName(const QString& text)
{
    // Through UTF-8, so that half a surrogate pair does not make a name that cannot be found again.
    QString name = QString::fromUtf8(text.toUtf8());
    for (QChar& character : name) {
        if (character == QLatin1Char('/'))
            character = QLatin1Char('-');
        else if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    name = name.trimmed();
    if (name.startsWith(QLatin1Char('.')))
        name[0] = QLatin1Char('_');
    return name.isEmpty() ? localizedString("Untitled") : name;
}

QString cutToBytes(const QString& text, qsizetype maximumBytes)
{
    const QByteArray bytes = text.toUtf8();
    if (bytes.size() <= maximumBytes)
        return text;
    const auto isInsideCharacter = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
    };
    qsizetype length = std::max<qsizetype>(maximumBytes, 0);
    while (length > 0 && isInsideCharacter(bytes[length]))
        --length;
    return QString::fromUtf8(bytes.first(length));
}

void LibraryNames::insert(const QString& name) { m_taken.insert(comparableName(name)); }

QString LibraryNames::takeFreeName(const QString& stem, const QString& extension)
{
    QString ending;
    if (!extension.isEmpty() && extension.toUtf8().size() <= maximumExtensionBytes)
        ending = QLatin1Char('.') + extension;
    QString safeStem = safeFileName(stem);
    if (!ending.isEmpty() && safeStem.size() > ending.size()
        && safeStem.endsWith(ending, Qt::CaseInsensitive))
        safeStem.chop(ending.size());

    const qsizetype stemBytes = maximumFileNameBytes - ending.toUtf8().size();
    const QString plain = cutToBytes(safeStem, stemBytes) + ending;
    const QString comparablePlain = comparableName(plain);
    if (!m_taken.contains(comparablePlain)) {
        m_taken.insert(comparablePlain);
        return plain;
    }

    // Long stems that differ only where they are cut share their numbers: counting from 1 for each of them
    // would take time that grows with the square of their count.
    const QString shared = cutToBytes(safeStem, stemBytes - numberBytes);
    int& number = m_lastNumber[comparableName(shared + ending)];
    for (;;) {
        const QString name = QStringLiteral("%1 %2%3").arg(shared, QString::number(++number), ending);
        const QString comparable = comparableName(name);
        if (!m_taken.contains(comparable)) {
            m_taken.insert(comparable);
            return name;
        }
    }
}

} // namespace platform
