// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/webview/WebResource.h"

#include <QList>
#include <QVariantMap>

#include <optional>

namespace platform {

// A document with all that it shows, and the same for each of its frames, in the layout that the
// platform's web views open.
class WebArchive {
public:
    WebArchive() = default;
    WebArchive(WebResource mainResource, QList<WebResource> subresources, QList<WebArchive> subframeArchives)
        : m_mainResource(std::move(mainResource))
        , m_subresources(std::move(subresources))
        , m_subframeArchives(std::move(subframeArchives))
    {
    }

    [[nodiscard]] const WebResource& mainResource() const { return m_mainResource; }
    [[nodiscard]] const QList<WebResource>& subresources() const { return m_subresources; }
    [[nodiscard]] const QList<WebArchive>& subframeArchives() const { return m_subframeArchives; }

    // WebMainResource, and WebSubresources and WebSubframeArchives where they are not empty. Frames nest
    // no deeper than a view loads them.
    [[nodiscard]] QVariantMap dictionary() const;

    // The dictionary as a binary property list.
    [[nodiscard]] std::optional<QByteArray> data(Error* error = nullptr) const;

private:
    WebResource m_mainResource;
    QList<WebResource> m_subresources;
    QList<WebArchive> m_subframeArchives;
};

} // namespace platform
