// SPDX-License-Identifier: MIT
#include "platform/webview/PageLoad.h"

#include "platform/webview/FrameLoad.h"
#include "platform/webview/UrlText.h"
#include "platform/webview/WebView.h"

namespace platform {

PageLoad::PageLoad(WebView& view, const QUrl& url)
    : m_view(view)
    , m_limits(view.m_limits)
    , m_policy(addressOfUrl(url))
    , m_bytesLeft(m_limits.pageBytes)
    , m_resourcesLeft(m_limits.resources)
    , m_framesLeft(m_limits.frames)
    , m_referencesLeft(m_limits.references)
{
}

PageLoad::~PageLoad() = default;

void PageLoad::start(const URLRequest& request)
{
    FrameContent content;
    content.request = request;
    content.address = addressOfUrl(request.url());
    (void)takeResource();
    startFrame(m_view.mainFrame(), std::move(content), nullptr);
}

void PageLoad::stop()
{
    if (std::exchange(m_stopped, true))
        return;
    for (const std::shared_ptr<ResourceLoad>& load : std::as_const(m_resources))
        load->cancel();
    for (const std::shared_ptr<ResourceLoad>& load : m_documents)
        load->cancel();
    // A frame comes after the one that holds it.
    for (auto frame = m_frames.rbegin(); frame != m_frames.rend(); ++frame) {
        (*frame)->cancelled();
        // The delegate may have loaded another page meanwhile, and these frames are gone.
        if (m_view.m_page.get() != this)
            return;
    }
}

bool PageLoad::isLoading() const
{
    return !m_stopped && !m_frames.empty() && !m_frames.front()->hasEnded();
}

WebResourceLoadDelegate* PageLoad::resourceLoadDelegate() const
{
    return m_stopped ? nullptr : m_view.m_resourceLoadDelegate;
}

bool PageLoad::takeBytes(qint64 byteCount)
{
    if (byteCount > m_bytesLeft)
        return false;
    m_bytesLeft -= byteCount;
    return true;
}

bool PageLoad::takeResource()
{
    return m_resourcesLeft > 0 && m_resourcesLeft-- > 0;
}

bool PageLoad::takeFrame()
{
    return m_framesLeft > 0 && m_framesLeft-- > 0;
}

bool PageLoad::takeReference()
{
    return m_referencesLeft > 0 && m_referencesLeft-- > 0;
}

std::shared_ptr<FrameLoad> PageLoad::startFrame(WebFrame& frame, FrameContent content, FrameLoad* parent)
{
    const std::shared_ptr<FrameLoad> load =
        std::make_shared<FrameLoad>(*this, frame, std::move(content), parent);
    m_frames.push_back(load);
    load->start();
    return load;
}

std::shared_ptr<ResourceLoad> PageLoad::resource(const FetchRequest& request,
                                                 const std::shared_ptr<WebDataSource>& dataSource)
{
    if (const std::shared_ptr<ResourceLoad> known = m_resources.value(request.address))
        return known;
    const auto load =
        std::make_shared<ResourceLoad>(*this, dataSource, URLRequest(urlOfAddress(request.address)));
    m_resources.insert(request.address, load);
    load->start(request);
    return load;
}

std::shared_ptr<ResourceLoad> PageLoad::document(const URLRequest& request,
                                                 const std::shared_ptr<WebDataSource>& dataSource)
{
    m_documents.push_back(std::make_shared<ResourceLoad>(*this, dataSource, request));
    return m_documents.back();
}

} // namespace platform
