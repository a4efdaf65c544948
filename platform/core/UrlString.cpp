// SPDX-License-Identifier: MIT
#include "platform/core/UrlString.h"

#include <QByteArrayView>

namespace platform {

namespace {

bool isHexDigit(QChar unit)
{
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

bool isUrlCharacter(QChar unit)
{
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z')
           || QStringView(u"!$&'()*+,-./:;=?@_~#[]").contains(unit);
}

// Where the host's square brackets stand, in a URL that has an authority and whose host is in
// brackets.
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
        const bool isPair = unit.isHighSurrogate() && index + 1 < repaired.size() &&
                            repaired[index + 1].isLowSurrogate();
        if (unit.isSurrogate() && !isPair)
            repaired[index] = QChar::ReplacementCharacter;
        index += isPair ? 1 : 0;
    }
    return repaired;
}

} // namespace

bool holdsUrlCharactersOnly(QStringView text)
{
    for (qsizetype index = 0; index < text.size(); ++index) {
        const bool isEscape = text[index] == u'%' && index + 2 < text.size() && isHexDigit(text[index + 1])
                              && isHexDigit(text[index + 2]);
        if (!isEscape && !isUrlCharacter(text[index]))
            return false;
    }
    return text.count(u'#') <= 1;
}

QString urlTextFromBytes(const QByteArray& bytes)
{
    const HostBrackets brackets = hostBrackets(bytes);
    const qsizetype fragment = bytes.indexOf('#');
    QByteArray url;
    url.reserve(bytes.size());
    for (qsizetype index = 0; index < bytes.size(); ++index) {
        const QChar byte = QLatin1Char(bytes[index]);
        const bool isEscape = byte == u'%' && index + 2 < bytes.size() &&
                              isHexDigit(QLatin1Char(bytes[index + 1])) &&
                              isHexDigit(QLatin1Char(bytes[index + 2]));
        const bool isBracket = byte == u'[' || byte == u']';
        const bool isKept = byte == u'#' ? index == fragment
                            : isBracket  ? index == brackets.opening || index == brackets.closing
                                         : isUrlCharacter(byte) || isEscape;
        if (isKept)
            url += bytes[index];
        else
            url += '%' + QByteArray(1, bytes[index]).toHex().toUpper();
    }
    return QString::fromLatin1(url);
}

QString urlTextFromString(const QString& text)
{
    // Qt would write a question mark, and that begins a query.
    return urlTextFromBytes(
        (text.isValidUtf16() ? text : withoutUnpairedSurrogates(text)).toUtf8());
}

std::optional<QUrl> urlWithString(const QString& text)
{
    if (text.isEmpty() || !holdsUrlCharactersOnly(text))
        return std::nullopt;
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

QString absoluteStringOfUrl(const QUrl& url) { return QString::fromLatin1(url.toEncoded(QUrl::FullyEncoded)); }

} // namespace platform
