// SPDX-License-Identifier: MIT
#include "formats/QLWebBookmarkFileReading.h"

#include "formats/QLWebBookmarkFile.h"
#include "platform/core/CharacterSet.h"
#include "platform/core/PathUtilities.h"
#include "platform/core/StringEncoding.h"
#include "platform/core/Url.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"

#include <QUtf8StringView>

#include <algorithm>

namespace {

QString textForKey(const QVariantMap& dictionary, const char* key)
{
    const QVariant value = dictionary.value(QLatin1String(key));
    return value.metaType().id() == QMetaType::QString ? value.toString() : QString();
}

QString nameOfFile(const QUrl& fileUrl)
{
    return platform::stringByDeletingPathExtension(
        platform::lastPathComponent(fileUrl.toLocalFile()));
}

} // namespace

QLWebBookmarkContents webBookmarkContents(QByteArrayView propertyList)
{
    const QVariant value = platform::propertyListFromData(propertyList).value_or(QVariant());
    if (value.metaType().id() != QMetaType::QVariantMap)
        return {};
    const QVariantMap dictionary = value.toMap();
    return {textForKey(dictionary, "public.url-name"), textForKey(dictionary, "URL")};
}

std::optional<QString> addressInShortcut(QStringView text)
{
    constexpr QStringView mark = u"URL=";
    const qsizetype start = text.indexOf(mark);
    if (start < 0)
        return std::nullopt;
    const QStringView rest = text.sliced(start + mark.size());
    const auto end = std::find_if(rest.begin(), rest.end(), [](QChar unit) {
        return platform::isWhitespaceOrNewlineCharacter(unit.unicode());
    });
    return rest.first(end - rest.begin()).toString();
}

std::optional<QString> addressInShortcut(const QByteArray& file)
{
    // Some programs write the code page of their computer, most often this one; an address is not
    // to be lost to the path of an icon.
    const auto encoding = QUtf8StringView(file).isValidUtf8()
                              ? platform::StringEncoding::Utf8
                              : platform::StringEncoding::WindowsLatin1;
    return addressInShortcut(QStringView(platform::decodedString(file, encoding)));
}

QLWebBookmarkFile::Pointer QLWebBookmarkFile::bookmarkWithFileAtURL(const QUrl& fileUrl)
{
    auto bookmark = std::make_shared<QLWebBookmarkFile>();
    if (platform::pathExtension(fileUrl.toLocalFile()) == QLatin1String("url"))
        bookmark->readURLFile(fileUrl);
    else
        bookmark->readWeblocFile(fileUrl);
    return bookmark;
}

bool QLWebBookmarkFile::readWeblocFile(const QUrl& fileUrl)
{
    const auto bytes = platform::readFile(fileUrl.toLocalFile());
    const QLWebBookmarkContents contents = webBookmarkContents(bytes.value_or(QByteArray()));
    if (!contents.address.isEmpty())
        setURL(platform::Url::fromLooseString(contents.address).value_or(platform::Url()));
    if (!contents.name.isEmpty())
        setName(contents.name);
    if (m_name.isEmpty())
        setName(nameOfFile(fileUrl));
    return true;
}

bool QLWebBookmarkFile::readURLFile(const QUrl& fileUrl)
{
    const auto bytes = platform::readFile(fileUrl.toLocalFile());
    const auto address = bytes ? addressInShortcut(*bytes) : std::nullopt;
    if (!address)
        return false;
    setName(nameOfFile(fileUrl));
    if (!address->isEmpty())
        setURL(platform::Url::fromLooseString(*address).value_or(platform::Url()));
    return true;
}
