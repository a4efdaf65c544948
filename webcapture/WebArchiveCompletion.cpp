// SPDX-License-Identifier: MIT
#include "webcapture/WebArchiveCompletion.h"

#include "platform/core/SystemLog.h"
#include "platform/core/UrlString.h"
#include "platform/propertylist/PropertyList.h"
#include "webcapture/WebArchiveKeys.h"

using platform::Error;
using platform::PropertyListFormat;

namespace {

std::optional<QByteArray> failed(const QString& text, const Error& reason, Error* error)
{
    platform::systemLog(text.arg(reason.description()));
    platform::setError(error, reason);
    return std::nullopt;
}

} // namespace

std::optional<QByteArray> completedWebArchiveData(const QByteArray& platformData,
                                                  platform::WebFrame& mainFrame,
                                                  const CachedResponses& cachedResponses,
                                                  const QUrl& originalWebURL, Error* error)
{
    Error reason;
    const std::optional<QVariant> decoded = platform::propertyListFromData(platformData, &reason);
    if (!decoded)
        return failed(QStringLiteral("Couldn't create property list to save web archive: %1"),
                      reason, error);
    const PropertyListFormat format =
        platformData.startsWith("bplist") ? PropertyListFormat::Binary : PropertyListFormat::Xml;
    QVariantMap archive =
        webArchiveDictionaryWithDictionary(mainFrame, decoded->toMap(), cachedResponses);
    archive.insert(webarchive::quilleryResourceKey,
                   QVariantMap{{webarchive::originalWebUrlKey,
                                platform::absoluteStringOfUrl(originalWebURL)}});
    std::optional<QByteArray> data = platform::propertyListData(archive, format, &reason);
    if (!data)
        return failed(
            QStringLiteral("Couldn't create data from property list to save web archive: %1"),
            reason, error);
    return data;
}
