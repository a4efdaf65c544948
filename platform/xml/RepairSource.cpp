// SPDX-License-Identifier: MIT
#include "platform/xml/RepairSource.h"

#include <QString>
#include <QStringDecoder>

#include <cctype>

namespace platform {

namespace {

constexpr QByteArrayView cDataOpening = "<![CDATA[";
constexpr QByteArrayView cDataClosing = "]]>";
// Where the declaration must stand; no encoding is looked for beyond.
constexpr qsizetype declarationLength = 200;

// The encoding that the declaration names, if it can be the true one: a name that calls for two
// bytes a character is a leftover of a conversion when the declaration itself could be read.
QByteArray declaredEncoding(QByteArrayView data)
{
    const QByteArray start = data.first(std::min(data.size(), declarationLength)).toByteArray();
    const qsizetype end = start.indexOf("?>");
    qsizetype position = start.indexOf("encoding");
    if (!start.trimmed().startsWith("<?xml") || position < 0 || position > end)
        return {};
    position = start.indexOf('=', position);
    if (position < 0)
        return {};
    const QByteArray value = start.sliced(position + 1, end - position - 1).trimmed();
    const qsizetype closing = value.isEmpty() ? -1 : value.indexOf(value.front(), 1);
    const QByteArray name = closing > 0 ? value.sliced(1, closing - 1) : QByteArray();
    return name.startsWith("UTF") || name.startsWith("utf") ? QByteArray() : name;
}

QString decoded(QByteArrayView data)
{
    if (const auto marked = QStringConverter::encodingForData(data)) {
        QStringDecoder decoder(*marked);
        return decoder.decode(data);
    }
    const QByteArray name = declaredEncoding(data);
    QStringDecoder decoder = name.isEmpty() ? QStringDecoder() : QStringDecoder(name.constData());
    return decoder.isValid() ? QString(decoder.decode(data)) : QString::fromUtf8(data);
}

bool isForbidden(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r') || unit == 0xFFFE ||
           unit == 0xFFFF || unit == 0xFEFF;
}

QByteArray withPlainCData(const QByteArray& source)
{
    QByteArray result;
    qsizetype start = 0;
    qsizetype opening = source.indexOf(cDataOpening);
    while (opening >= 0) {
        result.append(source.constData() + start, opening - start);
        const qsizetype content = opening + cDataOpening.size();
        const qsizetype closing = source.indexOf(cDataClosing, content);
        const QByteArrayView text = QByteArrayView(source).sliced(
            content, (closing < 0 ? source.size() : closing) - content);
        result.append(
            text.toByteArray().replace('&', "&amp;").replace('<', "&lt;").replace('>', "&gt;"));
        start = closing < 0 ? source.size() : closing + cDataClosing.size();
        opening = source.indexOf(cDataOpening, start);
    }
    return result.append(source.constData() + start, source.size() - start);
}

// Where a declaration, a DOCTYPE with its internal subset, or another "<!" or "<?" that starts at
// position ends; the source's end when it does not.
qsizetype endOfProlog(const QByteArray& source, qsizetype position)
{
    const QByteArrayView rest = QByteArrayView(source).sliced(position);
    if (rest.startsWith("<!--")) {
        const qsizetype end = source.indexOf("-->", position + 4);
        return end < 0 ? source.size() : end + 3;
    }
    qsizetype end = source.indexOf('>', position);
    // Not looked for beyond the end, as often as there are ends.
    const qsizetype subset = rest.first(std::max<qsizetype>(end - position, 0)).indexOf('[');
    if (rest.startsWith("<!") && subset >= 0) {
        const qsizetype closing = source.indexOf(']', position + subset);
        end = closing < 0 ? -1 : source.indexOf('>', closing);
    }
    return end < 0 ? source.size() : end + 1;
}

bool startsMarkup(const QByteArray& source, qsizetype position, const char* kinds)
{
    return source[position] == '<' && position + 1 < source.size() &&
           QByteArrayView(kinds).contains(source[position + 1]);
}

bool startsTag(const QByteArray& source, qsizetype position)
{
    return source[position] == '<' && position + 1 < source.size() &&
           std::isalpha(static_cast<unsigned char>(source[position + 1]));
}

bool isBlank(char character)
{
    return std::isspace(static_cast<unsigned char>(character)) != 0;
}

// The name after the byte at position.
QByteArray tagName(const QByteArray& source, qsizetype position)
{
    qsizetype end = position + 1;
    while (end < source.size() && !isBlank(source[end]) && source[end] != '>' && source[end] != '/')
        ++end;
    return source.sliced(position + 1, end - position - 1).toLower();
}

} // namespace

RepairSource::RepairSource(QByteArrayView data)
{
    QString text = decoded(data);
    text.removeIf(isForbidden);
    const QByteArray source = withPlainCData(text.toUtf8());
    constexpr QByteArrayView doctype = "<!doctype";
    qsizetype position = 0;
    while (position < source.size() &&
           (isBlank(source[position]) || startsMarkup(source, position, "?!"))) {
        if (isBlank(source[position])) {
            ++position;
            continue;
        }
        const qsizetype name = position + doctype.size() + 1;
        if (source.mid(position, doctype.size()).toLower() == doctype && name < source.size())
            announcedRoot = tagName(source, name - 1);
        position = endOfProlog(source, position);
    }
    markup = source.sliced(position);
    lookAround();
}

void RepairSource::lookAround()
{
    qsizetype position = 0;
    while (position < markup.size() && !(hasText && !firstElement.isEmpty())) {
        if (startsTag(markup, position)) {
            if (firstElement.isEmpty())
                firstElement = tagName(markup, position);
            const qsizetype end = markup.indexOf('>', position);
            position = end < 0 ? markup.size() : end + 1;
        } else if (startsMarkup(markup, position, "?!/")) {
            position = endOfProlog(markup, position);
        } else {
            if (!isBlank(markup[position])) {
                hasText = true;
                beginsWithText |= firstElement.isEmpty();
            }
            ++position;
        }
    }
}

} // namespace platform
