// SPDX-License-Identifier: MIT
#include "platform/core/Url.h"

#include "platform/core/UrlString.h"

#include <algorithm>

namespace platform {

namespace {

// The parts of a URL's text by RFC 3986; views into it, without their delimiters.
struct UrlParts {
    QStringView scheme;
    QStringView authority;
    QStringView path;
    bool hasScheme = false;
    bool hasAuthority = false;
};

qsizetype firstOf(QStringView text, QStringView characters)
{
    const auto found = std::find_if(text.begin(), text.end(),
                                    [&](QChar unit) { return characters.contains(unit); });
    return found - text.begin();
}

UrlParts partsOf(QStringView text)
{
    UrlParts parts;
    const qsizetype colon = firstOf(text, u":/?#");
    if (colon < text.size() && text[colon] == u':') {
        parts.hasScheme = true;
        parts.scheme = text.first(colon);
        text = text.sliced(colon + 1);
    }
    if (text.startsWith(u"//")) {
        parts.hasAuthority = true;
        text = text.sliced(2);
        parts.authority = text.first(firstOf(text, u"/?#"));
        text = text.sliced(parts.authority.size());
    }
    parts.path = text.first(firstOf(text, u"?#"));
    return parts;
}

bool isAsciiLetter(QChar unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool isDigit(QChar unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isScheme(QStringView scheme)
{
    return !scheme.isEmpty() && isAsciiLetter(scheme.front()) &&
           std::all_of(scheme.begin(), scheme.end(), [](QChar unit) {
               return isAsciiLetter(unit) || isDigit(unit) || QStringView(u"+-.").contains(unit);
           });
}

struct HostAndPort {
    QStringView host; // with brackets
    QStringView port; // with its colon
};

HostAndPort hostAndPort(QStringView authority)
{
    const QStringView place = authority.sliced(authority.lastIndexOf(u'@') + 1);
    const qsizetype end = place.startsWith(u'[') ? place.indexOf(u']') + 1 : place.indexOf(u':');
    if (end < 0)
        return {place, {}};
    return {place.first(end), place.sliced(end)};
}

bool isAuthority(QStringView authority)
{
    const auto [host, port] = hostAndPort(authority);
    const bool isPort = port.isEmpty() || (port.startsWith(u':') &&
                                           std::all_of(port.begin() + 1, port.end(), isDigit));
    if (!isPort)
        return false;
    // An IPv6 address has colons; what may stand between them is the name server's matter.
    const bool isBracketed = host.startsWith(u'[') && host.endsWith(u']') && host.contains(u':');
    return authority.count(u'[') + authority.count(u']') == (isBracketed ? 2 : 0);
}

QString withoutEscapes(QStringView text)
{
    return QString::fromUtf8(QByteArray::fromPercentEncoding(text.toLatin1()));
}

} // namespace

Url::Url(const QUrl& url)
    : m_text(absoluteStringOfUrl(url.isValid() ? url : QUrl()))
{
}

std::optional<Url> Url::fromString(const QString& text)
{
    if (text.isEmpty() || !holdsUrlCharactersOnly(text))
        return std::nullopt;
    const UrlParts parts = partsOf(text);
    if ((parts.hasScheme && !isScheme(parts.scheme)) ||
        (parts.hasAuthority && !isAuthority(parts.authority)))
        return std::nullopt;
    Url url;
    url.m_text = text;
    return url;
}

std::optional<Url> Url::fromLooseString(const QString& text)
{
    if (auto url = fromString(text))
        return url;
    auto url = fromString(urlTextFromString(text));
    return url && !url->scheme().isEmpty() ? url : std::nullopt;
}

QString Url::scheme() const
{
    return partsOf(m_text).scheme.toString();
}

QString Url::host() const
{
    QStringView host = hostAndPort(partsOf(m_text).authority).host;
    if (host.startsWith(u'[') && host.endsWith(u']'))
        host = host.sliced(1, host.size() - 2);
    return withoutEscapes(host);
}

QString Url::path() const
{
    return withoutEscapes(partsOf(m_text).path);
}

} // namespace platform
