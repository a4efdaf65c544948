// SPDX-License-Identifier: MIT
#include "webcapture/SubresourceMerging.h"

#include "platform/propertylist/KeyedArchiver.h"
#include "webcapture/WebArchiveKeys.h"

#include <QSet>

using platform::WebResource;

namespace {

// That there was a response is all that an archive says of it: readers expect a keyed archive under
// this key, and ours holds data without a byte.
QByteArray responseMark()
{
    platform::KeyedArchiver archiver;
    archiver.encodeObject(
        platform::ArchiveValue::data({}, platform::ArchiveValue::Mutability::Mutable),
        webarchive::resourceResponseKey);
    return archiver.finishEncoding().value_or(QByteArray());
}

QVariantMap resourceDictionary(const WebResource& resource, const CachedResponses& cachedResponses)
{
    QVariantMap result = {{webarchive::resourceDataKey, resource.data()},
                          {webarchive::resourceUrlKey, resource.absoluteString()}};
    if (!resource.mimeType().isEmpty())
        result.insert(webarchive::resourceMimeTypeKey, resource.mimeType());
    if (cachedResponses.contains(resource.absoluteString()))
        result.insert(webarchive::resourceResponseKey, responseMark());
    return result;
}

} // namespace

QVariantList mergedSubresources(const QVariantList& listed, const QList<WebResource>& received,
                                const CachedResponses& cachedResponses)
{
    QVariantList result = listed;
    QSet<QString> known;
    for (const QVariant& entry : listed)
        known.insert(entry.toMap().value(webarchive::resourceUrlKey).toString());
    for (const WebResource& resource : received) {
        const bool isKnown = known.contains(resource.absoluteString());
        if (!isKnown && !resource.data().isNull() && !resource.absoluteString().isEmpty())
            result += resourceDictionary(resource, cachedResponses);
    }
    return result;
}
