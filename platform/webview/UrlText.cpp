// SPDX-License-Identifier: MIT
#include "platform/webview/UrlText.h"

#include <QRegularExpression>

namespace platform {
namespace {

// Servers take no longer ones; resolving them would be the work that a hostile page gives us.
constexpr qsizetype maximumLength = 16384;

struct Address {
    QString scheme;
    // Host and, where it is not the scheme's own, port.
    QString authority;
    QString path;
    // With its question mark; empty when there is none.
    QString query;
    // Of an address without host and path (data:, about:), all that follows the scheme.
    QString opaque;

    [[nodiscard]] bool isHierarchical() const
    {
        return scheme == QLatin1String("http") || scheme == QLatin1String("https") || isFile();
    }
    [[nodiscard]] bool isFile() const { return scheme == QLatin1String("file"); }
    [[nodiscard]] QString text() const
    {
        if (!isHierarchical())
            return scheme + QLatin1Char(':') + opaque;
        return scheme + QLatin1String("://") + authority + path + query;
    }
};

bool isSlash(QChar character)
{
    return character == QLatin1Char('/') || character == QLatin1Char('\\');
}

QString escaped(QStringView text, const char* unsafe)
{
    static const char digits[] = "0123456789ABCDEF";
    std::array<bool, 256> isSafe = {};
    std::fill(isSafe.begin() + 0x21, isSafe.begin() + 0x7F, true);
    for (const char* character = unsafe; *character; ++character)
        isSafe[static_cast<uchar>(*character)] = false;
    if (std::all_of(text.begin(), text.end(),
                    [&](QChar c) { return c.unicode() < 0x80 && isSafe[c.unicode()]; }))
        return text.toString();
    QString result;
    result.reserve(text.size());
    for (const char byte : text.toUtf8()) {
        const uchar value = static_cast<uchar>(byte);
        if (isSafe[value]) {
            result += QLatin1Char(byte);
        } else {
            result += QLatin1Char('%');
            result += QLatin1Char(digits[value >> 4]);
            result += QLatin1Char(digits[value & 15]);
        }
    }
    return result;
}

QString trimmedReference(QStringView reference)
{
    while (!reference.isEmpty() && reference.front().unicode() <= 0x20)
        reference = reference.mid(1);
    while (!reference.isEmpty() && reference.back().unicode() <= 0x20)
        reference.chop(1);
    QString result = reference.toString();
    result.removeIf([](QChar character) {
        return character == QLatin1Char('\t') || character == QLatin1Char('\n')
               || character == QLatin1Char('\r');
    });
    return result;
}

// The length of the scheme before the colon, or -1.
qsizetype schemeLength(QStringView text)
{
    for (qsizetype index = 0; index < text.size(); ++index) {
        const ushort unit = text[index].unicode();
        const bool letter = (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z');
        if (unit == ':')
            return index > 0 ? index : -1;
        const bool further = (unit >= '0' && unit <= '9') || unit == '+' || unit == '-' || unit == '.';
        if (!letter && !(further && index > 0))
            return -1;
    }
    return -1;
}

// Without "." and ".." segments, escaped.
QString normalisedPath(QStringView path, bool backslashesCount)
{
    static const QRegularExpression dotEscape(QStringLiteral("%2e"),
                                              QRegularExpression::CaseInsensitiveOption);
    QStringList segments;
    qsizetype start = 0;
    for (qsizetype index = 0; index <= path.size(); ++index) {
        const bool atEnd = index == path.size();
        if (!atEnd && path[index] != QLatin1Char('/') && !(backslashesCount && isSlash(path[index])))
            continue;
        const QStringView segment = path.mid(start, index - start);
        start = index + 1;
        QString dots;
        if (segment.size() <= 6 && (segment.startsWith(u'.') || segment.startsWith(u'%')))
            dots = segment.toString().replace(dotEscape, QStringLiteral("."));
        if (dots == QLatin1String("..")) {
            if (!segments.isEmpty())
                segments.removeLast();
            if (atEnd)
                segments += QString();
        } else if (dots == QLatin1String(".")) {
            if (atEnd)
                segments += QString();
        } else {
            segments += escaped(segment, "\"#<>?`{}");
        }
    }
    return QLatin1Char('/') + segments.join(QLatin1Char('/'));
}

// Lower case, in ASCII; nothing when it cannot name a host.
std::optional<QString> normalisedHost(QStringView text)
{
    if (text.startsWith(QLatin1Char('['))) {
        static const QRegularExpression literal(QStringLiteral("^\\[[0-9A-Fa-f:.]+\\]$"));
        return literal.match(text).hasMatch() ? std::optional(text.toString().toLower()) : std::nullopt;
    }
    const QString decoded = QString::fromUtf8(QByteArray::fromPercentEncoding(text.toUtf8()));
    static const QRegularExpression forbidden(QStringLiteral("[\\x00-\\x20#%/:<>?@\\[\\\\\\]^|\\x7f]"));
    if (decoded.isEmpty() || decoded.contains(forbidden))
        return std::nullopt;
    const bool ascii =
        std::all_of(decoded.cbegin(), decoded.cend(), [](QChar c) { return c.unicode() < 0x80; });
    // QUrl refuses underscores, which real hosts have.
    const QString host = ascii ? decoded.toLower() : QString::fromLatin1(QUrl::toAce(decoded));
    return host.isEmpty() ? std::nullopt : std::optional(host);
}

bool setAuthority(Address& address, QStringView text)
{
    // Everything up to the last @ is a user name and a password.
    text = text.mid(text.lastIndexOf(QLatin1Char('@')) + 1);
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    QStringView port;
    if (colon >= 0 && colon > text.lastIndexOf(QLatin1Char(']'))) {
        port = text.mid(colon + 1);
        text = text.left(colon);
    }
    if (address.isFile()) {
        if (!port.isEmpty())
            return false;
        if (text.isEmpty() || text.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0)
            return true;
    }
    const std::optional<QString> host = normalisedHost(text);
    if (!host)
        return false;
    address.authority = *host;
    if (port.isEmpty())
        return true;
    bool isNumber = false;
    const uint number = port.toUInt(&isNumber);
    if (!isNumber || number > 65535)
        return false;
    const uint usual = address.scheme == QLatin1String("http") ? 80 : 443;
    if (number != usual)
        address.authority += QLatin1Char(':') + QString::number(number);
    return true;
}

// Path and query from what follows the authority.
void setPathAndQuery(Address& address, QStringView rest)
{
    const qsizetype question = rest.indexOf(QLatin1Char('?'));
    if (question >= 0) {
        address.query = QLatin1Char('?') + escaped(rest.mid(question + 1), "\"#<>'");
        rest = rest.left(question);
    }
    if (!rest.isEmpty() && isSlash(rest.front()))
        rest = rest.mid(1);
    address.path = normalisedPath(rest, true);
}

bool setFromAuthority(Address& address, QStringView rest)
{
    qsizetype end = 0;
    while (end < rest.size() && !isSlash(rest[end]) && rest[end] != QLatin1Char('?'))
        ++end;
    if (!setAuthority(address, rest.left(end)))
        return false;
    setPathAndQuery(address, rest.mid(end));
    return true;
}

std::optional<Address> parsed(QStringView reference, const Address* base)
{
    Address address;
    QStringView rest = reference;
    const qsizetype length = schemeLength(reference);
    if (length > 0) {
        address.scheme = reference.left(length).toString().toLower();
        rest = reference.mid(length + 1);
        if (!address.isHierarchical()) {
            address.opaque = escaped(rest, "");
            return address;
        }
        const bool rooted = !rest.isEmpty() && isSlash(rest.front());
        if (address.isFile() && rooted) {
            if (rest.size() > 1 && isSlash(rest[1]))
                return setFromAuthority(address, rest.mid(2)) ? std::optional(address) : std::nullopt;
            setPathAndQuery(address, rest);
            return address;
        }
        if (rooted || !base || base->scheme != address.scheme) {
            if (address.isFile())
                return std::nullopt;
            while (!rest.isEmpty() && isSlash(rest.front()))
                rest = rest.mid(1);
            return setFromAuthority(address, rest) ? std::optional(address) : std::nullopt;
        }
    }
    if (!base || !base->isHierarchical())
        return std::nullopt;
    address = *base;
    if (rest.isEmpty())
        return address;
    address.query.clear();
    if (rest.size() > 1 && isSlash(rest[0]) && isSlash(rest[1])) {
        address.authority.clear();
        return setFromAuthority(address, rest.mid(2)) ? std::optional(address) : std::nullopt;
    }
    if (isSlash(rest.front())) {
        setPathAndQuery(address, rest);
        return address;
    }
    if (rest.front() == QLatin1Char('?')) {
        address.query = QLatin1Char('?') + escaped(rest.mid(1), "\"#<>'");
        return address;
    }
    const QString folder = base->path.left(base->path.lastIndexOf(QLatin1Char('/')) + 1);
    setPathAndQuery(address, QString(folder + rest.toString()));
    return address;
}

bool hasScheme(QStringView address, QLatin1String scheme)
{
    return address.size() > scheme.size() && address[scheme.size()] == QLatin1Char(':')
           && address.startsWith(scheme, Qt::CaseInsensitive);
}

} // namespace

QString absoluteAddress(QStringView reference, const QString& base)
{
    if (reference.size() > maximumLength && !isDataAddress(reference.trimmed().left(16)))
        return {};
    QString text = trimmedReference(reference);
    const qsizetype fragment = text.indexOf(QLatin1Char('#'));
    if (fragment >= 0)
        text.truncate(fragment);
    std::optional<Address> baseAddress;
    if (!base.isEmpty())
        baseAddress = parsed(base, nullptr);
    const std::optional<Address> address = parsed(text, baseAddress ? &*baseAddress : nullptr);
    if (!address)
        return {};
    const QString result = address->text();
    return result.size() > maximumLength && !isDataAddress(result) ? QString() : result;
}

QString addressOfUrl(const QUrl& url)
{
    return absoluteAddress(QString::fromLatin1(url.toEncoded()), QString());
}

QUrl urlOfAddress(const QString& address)
{
    // One stray percent sign makes QUrl escape all of them again.
    static const QRegularExpression stray(QStringLiteral("%(?![0-9A-Fa-f]{2})"));
    QString text = address;
    text.replace(stray, QStringLiteral("%25"));
    return QUrl::fromEncoded(text.toLatin1(), QUrl::TolerantMode);
}

bool isWebAddress(QStringView address)
{
    return hasScheme(address, QLatin1String("http")) || hasScheme(address, QLatin1String("https"));
}

bool isFileAddress(QStringView address)
{
    return hasScheme(address, QLatin1String("file"));
}

bool isDataAddress(QStringView address)
{
    return hasScheme(address, QLatin1String("data"));
}

QString originOfAddress(const QString& address)
{
    if (!isWebAddress(address))
        return {};
    const qsizetype start = address.indexOf(QLatin1String("://")) + 3;
    const qsizetype end = address.indexOf(QLatin1Char('/'), start);
    return end < 0 ? address : address.left(end);
}

} // namespace platform
