// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/URLRequest.h"
#include "platform/webview/URLResponse.h"
#include "platform/webview/WebResource.h"

#include <QList>

namespace platform {

class FrameLoad;
class WebFrame;

// What a frame loads: the request, the response, the document and its sub-resources.
class WebDataSource {
public:
    WebDataSource(WebFrame& frame, URLRequest request);

    [[nodiscard]] WebFrame& webFrame() const { return m_frame; }
    [[nodiscard]] const URLRequest& initialRequest() const { return m_initialRequest; }
    // The request after redirects.
    [[nodiscard]] const URLRequest& request() const { return m_request; }
    [[nodiscard]] const URLResponse& response() const { return m_response; }

    // The document's bytes as they were received.
    [[nodiscard]] const QByteArray& data() const { return m_data; }
    // The encoding in which the document was read, such as "windows-1252"; empty until it is known.
    [[nodiscard]] const QString& textEncodingName() const { return m_textEncodingName; }
    [[nodiscard]] const QString& pageTitle() const { return m_pageTitle; }

    // The document as an archive holds it: text in UTF-8, under the address that answered.
    [[nodiscard]] WebResource mainResource() const;
    // Each resource that the document and its style sheets show and that was received, once, in the
    // document's order: what a style sheet refers to follows the sheet. Complete once the frame has ended.
    [[nodiscard]] const QList<WebResource>& subresources() const { return m_subresources; }
    // Some of them again, under addresses at which nothing was received but where a reader of the
    // document's archive looks for them.
    [[nodiscard]] const QList<WebResource>& displacedResources() const { return m_displacedResources; }

    [[nodiscard]] bool isLoading() const { return m_loading; }
    // The load broke off; what came before that is no whole document.
    [[nodiscard]] bool hasFailed() const { return m_failed; }

private:
    friend class FrameLoad;

    WebFrame& m_frame;
    URLRequest m_initialRequest;
    URLRequest m_request;
    URLResponse m_response;
    QByteArray m_data;
    // The document's text in UTF-8; null when the document is no text.
    QByteArray m_text;
    QString m_textEncodingName;
    QString m_pageTitle;
    QList<WebResource> m_subresources;
    QList<WebResource> m_displacedResources;
    bool m_loading = true;
    bool m_failed = false;
};

} // namespace platform
