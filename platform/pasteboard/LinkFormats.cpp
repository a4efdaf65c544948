// SPDX-License-Identifier: MIT
#include "platform/pasteboard/LinkFormats.h"

#include <QStringDecoder>
#include <QStringList>

namespace platform {

namespace {

const QString browserLinkFormat = QStringLiteral("text/x-moz-url");
const QString olderBrowserLinkFormat = QStringLiteral("_NETSCAPE_URL");
const QString addressListFormat = QStringLiteral("text/uri-list");

// An address begins with ASCII, so the place of its first zero byte tells the encoding.
QString linkText(const QByteArray& bytes)
{
    auto encoding = QStringDecoder::Utf8;
    if (bytes.startsWith("\xFF\xFE") || (bytes.size() > 1 && bytes[1] == '\0'))
        encoding = QStringDecoder::Utf16LE;
    else if (bytes.startsWith("\xFE\xFF") || bytes.startsWith('\0'))
        encoding = QStringDecoder::Utf16BE;
    return QStringDecoder(encoding).decode(bytes);
}

std::optional<OfferedLink> linkFromLines(const QString& text)
{
    const QStringList lines = text.split(u'\n');
    const QString address = lines.first().trimmed();
    if (address.isEmpty())
        return std::nullopt;
    return OfferedLink{address, lines.size() > 1 ? lines[1].trimmed().remove(QChar(0)) : QString()};
}

std::optional<OfferedLink> linkFromList(const QByteArray& list)
{
    for (const QByteArray& line : list.split('\n')) {
        const QByteArray address = line.trimmed();
        if (!address.isEmpty() && !address.startsWith('#'))
            return OfferedLink{QString::fromUtf8(address), {}};
    }
    return std::nullopt;
}

} // namespace

bool offersLink(const QMimeData& data)
{
    return data.hasFormat(browserLinkFormat) || data.hasFormat(olderBrowserLinkFormat)
           || data.hasFormat(addressListFormat);
}

std::optional<OfferedLink> offeredLink(const QMimeData& data)
{
    if (data.hasFormat(browserLinkFormat)) {
        if (auto link = linkFromLines(linkText(data.data(browserLinkFormat))))
            return link;
    }
    if (data.hasFormat(olderBrowserLinkFormat)) {
        if (auto link = linkFromLines(QString::fromUtf8(data.data(olderBrowserLinkFormat))))
            return link;
    }
    return linkFromList(data.data(addressListFormat));
}

} // namespace platform
