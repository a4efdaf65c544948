// SPDX-License-Identifier: MIT
#include "webcapture/WebFrameBMExtensions.h"

#include "platform/propertylist/KeyedArchiver.h"
#include "webcapture/WebArchiveKeys.h"

#include <QSet>

#include <algorithm>

using platform::WebFrame;
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

QVariantList completedSubresources(const WebFrame& frame, const QVariantList& given,
                                   const CachedResponses& cachedResponses)
{
    QVariantList result = given;
    if (!frame.dataSource())
        return result;
    QSet<QString> known;
    for (const QVariant& entry : given)
        known.insert(entry.toMap().value(webarchive::resourceUrlKey).toString());
    for (const WebResource& resource : frame.dataSource()->subresources()) {
        const bool isKnown = known.contains(resource.absoluteString());
        if (!isKnown && !resource.data().isNull() && !resource.absoluteString().isEmpty())
            result += resourceDictionary(resource, cachedResponses);
    }
    return result;
}

} // namespace

QVariantMap webArchiveDictionaryWithDictionary(WebFrame& frame, const QVariantMap& dictionary,
                                               const CachedResponses& cachedResponses)
{
    QVariantMap result = dictionary;
    result.insert(webarchive::subresourcesKey,
                  completedSubresources(frame,
                                        dictionary.value(webarchive::subresourcesKey).toList(),
                                        cachedResponses));
    QVariantList frames;
    // Frames nest no deeper than a view loads them, and property lists no deeper than they are
    // read.
    for (const QVariant& entry : dictionary.value(webarchive::subframeArchivesKey).toList()) {
        const QVariantMap archive = entry.toMap();
        const QVariantMap mainResource = archive.value(webarchive::mainResourceKey).toMap();
        const QString name = mainResource.value(webarchive::resourceFrameNameKey).toString();
        if (WebFrame* child = frame.findFrameNamed(name))
            frames += webArchiveDictionaryWithDictionary(*child, archive, cachedResponses);
    }
    result.insert(webarchive::subframeArchivesKey, frames);
    return result;
}

bool isFrameset(const WebFrame& frame)
{
    const QList<WebFrame*> children = frame.childFrames();
    return std::any_of(children.begin(), children.end(), [](const WebFrame* child) {
        return child->frameElement()->kind == platform::FrameElement::Kind::Frame;
    });
}
