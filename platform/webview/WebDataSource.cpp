// SPDX-License-Identifier: MIT
#include "platform/webview/WebDataSource.h"

#include "platform/webview/WebFrame.h"

namespace platform {

WebDataSource::WebDataSource(WebFrame& frame, URLRequest request)
    : m_frame(frame)
    , m_initialRequest(request)
    , m_request(std::move(request))
{
}

WebResource WebDataSource::mainResource() const
{
    // The text's own declaration of its encoding, if any, yields to the one that the archive names.
    const bool isText = !m_text.isNull();
    return WebResource(m_response.absoluteString(), isText ? m_text : m_data, m_response.mimeType(),
                       isText ? QStringLiteral("UTF-8") : QString(), m_frame.name());
}

} // namespace platform
