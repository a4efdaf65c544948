// SPDX-License-Identifier: MIT
#include "webcapture/WebFrameBMExtensions.h"

#include "webcapture/WebArchiveKeys.h"

#include <algorithm>

using platform::WebFrame;

QVariantMap webArchiveDictionaryWithDictionary(WebFrame& frame, const QVariantMap& dictionary,
                                               const CachedResponses& cachedResponses)
{
    QVariantMap result = dictionary;
    const platform::WebDataSource* const dataSource = frame.dataSource();
    result.insert(
        webarchive::subresourcesKey,
        mergedSubresources(dictionary.value(webarchive::subresourcesKey).toList(),
                           dataSource ? dataSource->subresources() : QList<platform::WebResource>(),
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
