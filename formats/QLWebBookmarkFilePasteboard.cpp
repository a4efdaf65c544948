// SPDX-License-Identifier: MIT
#include "formats/QLWebBookmarkFile.h"

#include "foundation/StringComparingBMExtensions.h"
#include "foundation/StringEscapingBMExtensions.h"
#include "platform/core/CharacterSet.h"
#include "platform/core/Url.h"
#include "platform/pasteboard/PasteboardTypes.h"

#include <algorithm>

using platform::Pasteboard;
using platform::Url;

namespace {

const QString titledUrlsType = QStringLiteral("WebURLsWithTitlesPboardType");
const QString labelledAddressesType = QStringLiteral("OWDictionaryBookmarkPasteboardType");
const QString noteItemType = QStringLiteral("com.brightmoor.Quillery.itemlink");
const QString labelKey = QStringLiteral("label");
const QString addressKey = QStringLiteral("address");
// Stands for an address that is missing; reserved for examples, so that nobody's page is opened.
const QString placeholderAddress = QStringLiteral("http://www.example.com/");

const QStringList& messageTypes()
{
    static const QStringList types{
        QStringLiteral("MV Super-secret message transfer pasteboard type"),
        QStringLiteral("com.apple.mail.PasteboardTypeMessageTransfer")};
    return types;
}

bool isMessageLink(const Url& url)
{
    return isCaseInsensitiveEqualToString(url.scheme(), QStringLiteral("x-postbox-message")) ||
           isCaseInsensitiveEqualToString(url.scheme(), QStringLiteral("message"));
}

// Browsers copy addresses with characters that the rules forbid, such as "|", but with none of
// these.
std::optional<Url> urlFromText(const QString& text)
{
    const bool hasBlank = std::any_of(text.begin(), text.end(), [](QChar unit) {
        return platform::isWhitespaceOrNewlineCharacter(unit.unicode());
    });
    return hasBlank ? std::nullopt : Url::fromLooseString(text);
}

bool isAddress(const QString& text)
{
    return (text.contains(QLatin1String("://")) || text.contains(u'@')) && !text.contains(u' ') &&
           urlFromText(text);
}

std::optional<Url> urlFromLooseText(const QString& text)
{
    const auto url = Url::fromString(text);
    return url ? url : Url::fromString(percentEncodedURLString(text));
}

QList<QLWebBookmarkFile::Pointer> bookmarksFromTitledUrls(const QVariantList& lists)
{
    QList<QLWebBookmarkFile::Pointer> bookmarks;
    const QVariantList addresses = lists.value(0).toList();
    const QVariantList titles = lists.value(1).toList();
    for (qsizetype index = 0; index < addresses.size(); ++index) {
        if (const auto url = urlFromLooseText(addresses[index].toString()))
            bookmarks += QLWebBookmarkFile::bookmarkWithName(titles.value(index).toString(), *url);
    }
    return bookmarks;
}

std::optional<Url> urlFromPlainText(const QString& text)
{
    const bool isMailAddress = text.contains(u'@') && !text.contains(QLatin1String("://")) &&
                               !text.startsWith(QLatin1String("mailto:"));
    return urlFromText(isMailAddress ? QStringLiteral("mailto:") + text : text);
}

QString writtenAddress(const QLWebBookmarkFile& bookmark)
{
    const QString address = bookmark.URL().absoluteString();
    return address.isEmpty() ? placeholderAddress : address;
}

} // namespace

QStringList QLWebBookmarkFile::bookmarksPasteboardTypes()
{
    return {titledUrlsType, labelledAddressesType, platform::pasteboardTypeUrl,
            platform::pasteboardTypeString};
}

bool QLWebBookmarkFile::canInitWithPasteboard(const Pasteboard& pasteboard)
{
    if (pasteboard.availableTypeFromArray(messageTypes()) ||
        isMessageLink(pasteboard.url().value_or(Url())) || pasteboard.offers(noteItemType))
        return false;
    if (pasteboard.availableTypeFromArray(
            {titledUrlsType, platform::pasteboardTypeUrl, platform::pasteboardUniformTypeUrl}))
        return true;
    if (const auto list = pasteboard.propertyListForType(labelledAddressesType))
        return !list->toList().value(0).toMap().value(addressKey).toString().isEmpty();
    if (pasteboard.offers(labelledAddressesType))
        return false;
    return isAddress(pasteboard.stringForType(platform::pasteboardTypeString).value_or(QString()));
}

QList<QLWebBookmarkFile::Pointer>
QLWebBookmarkFile::bookmarksWithPasteboard(const Pasteboard& pasteboard)
{
    const QString uniformTitledUrlsType = platform::uniformTypeForPasteboardType(titledUrlsType);
    const auto type = pasteboard.availableTypeFromArray({uniformTitledUrlsType, titledUrlsType,
                                                         platform::pasteboardUniformTypeUrl,
                                                         platform::pasteboardUniformTypeText});
    if (!type)
        return {};
    if (*type == uniformTitledUrlsType || *type == titledUrlsType)
        return bookmarksFromTitledUrls(
            pasteboard.propertyListForType(*type).value_or(QVariant()).toList());
    const bool isText = *type == platform::pasteboardUniformTypeText;
    const auto url = isText ? urlFromPlainText(pasteboard.stringForType(*type).value_or(QString()))
                            : pasteboard.url();
    if (!url)
        return {};
    const auto name =
        isText ? std::nullopt : pasteboard.stringForType(platform::pasteboardUniformTypeUrlName);
    return {bookmarkWithName(name.value_or(QString()), *url)};
}

bool QLWebBookmarkFile::writeBookmarkFiles(const QList<Pointer>& bookmarks, Pasteboard& pasteboard)
{
    QVariantList addresses;
    QVariantList names;
    QVariantList labelled;
    for (const Pointer& bookmark : bookmarks) {
        addresses += writtenAddress(*bookmark);
        names += bookmark->name();
        labelled +=
            QVariantMap{{labelKey, bookmark->name()}, {addressKey, writtenAddress(*bookmark)}};
    }
    pasteboard.clearContents();
    // Lists of texts are always property lists.
    static_cast<void>(pasteboard.setPropertyList(QVariantList{QVariant(addresses), QVariant(names)},
                                                 titledUrlsType));
    static_cast<void>(pasteboard.setPropertyList(labelled, labelledAddressesType));
    if (!bookmarks.isEmpty()) {
        const Url& url = bookmarks.first()->URL();
        if (!url.isEmpty())
            pasteboard.writeUrl(url);
        pasteboard.setString(url.absoluteString(), platform::pasteboardTypeString);
    }
    return true;
}
