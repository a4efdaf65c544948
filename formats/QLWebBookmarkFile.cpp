// SPDX-License-Identifier: MIT
#include "formats/QLWebBookmarkFile.h"

#include "foundation/StringBMExtensions.h"
#include "foundation/StringCleaningBMExtensions.h"
#include "foundation/StringComparingBMExtensions.h"
#include "foundation/StringPathsBMExtensions.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"
#include "platform/files/ResourceValues.h"
#include "platform/propertylist/PropertyList.h"

namespace {

constexpr double iconSize = 96;

struct SchemeExtension {
    const char* scheme;
    const char* extension;
};

constexpr SchemeExtension schemeExtensions[] = {
    {"http", "webloc"}, {"ftp", "ftploc"},   {"mailto", "mailloc"},
    {"afp", "afploc"},  {"file", "fileloc"}, {"news", "newsloc"},
};
constexpr const char* otherExtension = "inetloc";
// The kind is known, but no address is given it.
[[maybe_unused]] constexpr const char* screenSharingExtension = "vncloc";

const QString nameKey = QStringLiteral("name");
const QString urlKey = QStringLiteral("URL");
const QString iconImageKey = QStringLiteral("iconImage");
const QString canPreviewBookmarkKey = QStringLiteral("canPreviewBookmark");

bool fail(platform::Error* error, const char* description)
{
    platform::setError(error,
                       platform::Error(qlWebBookmarkErrorDomain, qlWebBookmarkInvalidValueError,
                                       platform::localizedString(description)));
    return false;
}

} // namespace

QLWebBookmarkFile::Pointer QLWebBookmarkFile::bookmarkWithName(const QString& name,
                                                               const platform::Url& url)
{
    auto bookmark = std::make_shared<QLWebBookmarkFile>();
    bookmark->setName(name);
    bookmark->setURL(url);
    return bookmark;
}

QLWebBookmarkFile::Pointer QLWebBookmarkFile::copy() const
{
    return bookmarkWithName(m_name, m_url);
}

QString QLWebBookmarkFile::fileExtensionForURL(const platform::Url& url)
{
    for (const SchemeExtension& kind : schemeExtensions) {
        if (startsWith(url.scheme(), QLatin1String(kind.scheme)))
            return QLatin1String(kind.extension);
    }
    return QLatin1String(otherExtension);
}

QStringList QLWebBookmarkFile::bookmarkFileTypes()
{
    QStringList types;
    for (const SchemeExtension& kind : schemeExtensions)
        types += QLatin1String(kind.extension);
    return types << QLatin1String(otherExtension) << QStringLiteral("url");
}

QSet<QString> QLWebBookmarkFile::keyPathsForValuesAffectingIconImage()
{
    return {urlKey};
}

QSet<QString> QLWebBookmarkFile::keyPathsForValuesAffectingCanPreviewBookmark()
{
    return {urlKey};
}

QString QLWebBookmarkFile::name() const
{
    return m_name.isEmpty() ? m_url.host() : m_name;
}

void QLWebBookmarkFile::setName(const QString& name)
{
    if (name == m_name)
        return;
    if (m_undoManager) {
        // The manager may outlive the bookmark that it was lent to.
        m_undoManager->registerUndo([bookmark = weak_from_this(), old = m_name] {
            if (const auto alive = bookmark.lock())
                alive->setName(old);
        });
    }
    m_name = stringByRemovingNewlinesAndTabs(name);
    didChangeValueForKey(nameKey);
}

void QLWebBookmarkFile::setURL(const platform::Url& url)
{
    if (url == m_url)
        return;
    if (m_undoManager) {
        m_undoManager->registerUndo([bookmark = weak_from_this(), old = m_url] {
            if (const auto alive = bookmark.lock())
                alive->setURL(old);
        });
    }
    m_url = url;
    didChangeValueForKey(urlKey);
}

QUrl QLWebBookmarkFile::fileURL() const
{
    const std::shared_ptr<const QUrl> url = m_fileUrl.load();
    return url ? *url : QUrl();
}

int QLWebBookmarkFile::addObserver(const QString& key, Observer observer)
{
    m_observers.insert({++m_lastObserver, {key, std::move(observer)}});
    return m_lastObserver;
}

void QLWebBookmarkFile::didChangeValueForKey(const QString& key)
{
    QSet<QString> changed{key};
    if (keyPathsForValuesAffectingIconImage().contains(key))
        changed += iconImageKey;
    if (keyPathsForValuesAffectingCanPreviewBookmark().contains(key))
        changed += canPreviewBookmarkKey;
    // An observer may remove itself or others.
    const auto observers = m_observers;
    for (const auto& [number, entry] : observers) {
        if (changed.contains(entry.key) && m_observers.contains(number))
            entry.observer(entry.key);
    }
}

std::optional<QByteArray> QLWebBookmarkFile::fileData(platform::Error* error) const
{
    QVariantMap dictionary{{urlKey, m_url.absoluteString()}};
    if (!m_name.isEmpty())
        dictionary.insert(QStringLiteral("public.url-name"), m_name);
    return platform::propertyListData(dictionary, platform::PropertyListFormat::Binary, error);
}

bool QLWebBookmarkFile::writeToFileAtURL(const QUrl& fileUrl, platform::Error* error) const
{
    const QString path = fileUrl.toLocalFile();
    const auto old = platform::resourceValues(path);
    const auto data = fileData(error);
    if (!data || !platform::writeFile(path, *data, platform::WriteOption::Plain, error))
        return false;
    if (old && old->creationDate) {
        platform::ResourceValues values;
        values.creationDate = old->creationDate;
        static_cast<void>(platform::setResourceValues(path, values));
    }
    return true;
}

platform::FileTypeIcon QLWebBookmarkFile::iconImage() const
{
    return platform::iconForFileType(fileExtensionForURL(m_url), iconSize, iconSize);
}

QString QLWebBookmarkFile::suggestedFilename() const
{
    const QString address = m_url.absoluteString();
    QString suggestion = name();
    if (suggestion.isEmpty() || startsWith(suggestion, QStringLiteral("http://"))) {
        const QString path = m_url.path();
        suggestion = platform::stringByDeletingPathExtension(platform::lastPathComponent(path));
        if (m_url.scheme() == QLatin1String("mailto"))
            suggestion = address.mid(qsizetype(strlen("mailto:")));
        else if (suggestion.size() < 2)
            suggestion = address.mid(m_url.scheme().size() + qsizetype(strlen("://")));
    }
    return fileSystemRepresentationString(
        stringSanitizedForFileName(suggestion + u'.' + fileExtensionForURL(m_url)));
}

bool QLWebBookmarkFile::canPreviewBookmark() const
{
    return m_url.scheme() == QLatin1String("http") || m_url.scheme() == QLatin1String("https");
}

bool QLWebBookmarkFile::validateName(QString& name, platform::Error* error) const
{
    return !name.isEmpty() || fail(error, "Bookmark name must not be empty.");
}

bool QLWebBookmarkFile::validateURL(platform::Url& url, platform::Error* error) const
{
    if (url.isEmpty())
        return fail(error, "Bookmark URL must not be empty.");
    if (startsWith(url.scheme(), QStringLiteral("http")) && url.path().isEmpty())
        url = platform::Url::fromString(url.absoluteString() + u'/').value_or(url);
    return true;
}
