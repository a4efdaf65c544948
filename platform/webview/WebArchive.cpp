// SPDX-License-Identifier: MIT
#include "platform/webview/WebArchive.h"

#include "platform/propertylist/PropertyList.h"

namespace platform {
namespace {

QVariantMap resourceDictionary(const WebResource& resource)
{
    QVariantMap result;
    // Data that is empty is still data, not a missing value.
    const QByteArray data = resource.data().isNull() ? QByteArray("") : resource.data();
    result.insert(QStringLiteral("WebResourceData"), data);
    result.insert(QStringLiteral("WebResourceURL"), resource.absoluteString());
    result.insert(QStringLiteral("WebResourceMIMEType"), resource.mimeType());
    if (!resource.textEncodingName().isEmpty())
        result.insert(QStringLiteral("WebResourceTextEncodingName"), resource.textEncodingName());
    return result;
}

} // namespace

QVariantMap WebArchive::dictionary() const
{
    QVariantMap mainResource = resourceDictionary(m_mainResource);
    mainResource.insert(QStringLiteral("WebResourceFrameName"), m_mainResource.frameName());
    QVariantMap result = {{QStringLiteral("WebMainResource"), mainResource}};
    QVariantList subresources;
    for (const WebResource& resource : m_subresources)
        subresources += resourceDictionary(resource);
    if (!subresources.isEmpty())
        result.insert(QStringLiteral("WebSubresources"), subresources);
    QVariantList frames;
    for (const WebArchive& archive : m_subframeArchives)
        frames += archive.dictionary();
    if (!frames.isEmpty())
        result.insert(QStringLiteral("WebSubframeArchives"), frames);
    return result;
}

std::optional<QByteArray> WebArchive::data(Error* error) const
{
    return propertyListData(dictionary(), PropertyListFormat::Binary, error);
}

} // namespace platform
