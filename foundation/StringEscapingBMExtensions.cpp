// SPDX-License-Identifier: MIT
#include "foundation/StringEscapingBMExtensions.h"

#include <QByteArray>

namespace {

bool isHexDigit(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

bool isUrlCharacter(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')
           || QByteArrayView("!$&'()*+,-./:;=?@_~").contains(byte);
}

// Where the host's square brackets stand, in a URL that has an authority and whose host is in brackets.
struct HostBrackets {
    qsizetype opening = -1;
    qsizetype closing = -1;
};

HostBrackets hostBrackets(const QByteArray& bytes)
{
    const qsizetype slashes = bytes.indexOf("//");
    if (slashes < 0 || (slashes > 0 && bytes[slashes - 1] != ':'))
        return {};
    qsizetype end = slashes + 2;
    while (end < bytes.size() && !QByteArrayView("/?#").contains(bytes[end]))
        ++end;
    const qsizetype user = bytes.first(end).lastIndexOf('@');
    const qsizetype opening = user < slashes + 2 ? slashes + 2 : user + 1;
    const qsizetype closing = bytes.indexOf(']', opening);
    if (opening >= end || bytes[opening] != '[' || closing < 0 || closing >= end)
        return {};
    return {opening, closing};
}

QString withoutUnpairedSurrogates(const QString& text)
{
    QString repaired = text;
    for (qsizetype index = 0; index < repaired.size(); ++index) {
        const QChar unit = repaired[index];
        const bool isPair = unit.isHighSurrogate() && index + 1 < repaired.size()
                            && repaired[index + 1].isLowSurrogate();
        if (unit.isSurrogate() && !isPair)
            repaired[index] = QChar::ReplacementCharacter;
        index += isPair ? 1 : 0;
    }
    return repaired;
}

} // namespace

QString stringByEscapingBackslashes(const QString& text)
{
    QString escaped = text;
    return escaped.replace(u'\\', QStringLiteral("\\\\"));
}

QString stringByEscapingQuotes(const QString& text)
{
    QString escaped = text;
    return escaped.replace(u'\'', QStringLiteral("\\'")).replace(u'"', QStringLiteral("\\\""));
}

QString percentEncodedURLString(const QString& text)
{
    // Qt would write a question mark, and that begins a query.
    const QByteArray bytes = (text.isValidUtf16() ? text : withoutUnpairedSurrogates(text)).toUtf8();
    const HostBrackets brackets = hostBrackets(bytes);
    const qsizetype fragment = bytes.indexOf('#');
    QByteArray url;
    url.reserve(bytes.size());
    for (qsizetype index = 0; index < bytes.size(); ++index) {
        const char byte = bytes[index];
        const bool isEscape = byte == '%' && index + 2 < bytes.size() && isHexDigit(bytes[index + 1])
                              && isHexDigit(bytes[index + 2]);
        if (isUrlCharacter(byte) || isEscape || index == fragment || index == brackets.opening
            || index == brackets.closing)
            url += byte;
        else
            url += '%' + QByteArray(1, byte).toHex().toUpper();
    }
    return QString::fromLatin1(url);
}
