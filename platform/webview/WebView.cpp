// SPDX-License-Identifier: MIT
#include "platform/webview/WebView.h"

#include "platform/webview/PageLoad.h"

#include <QCoreApplication>

#include <memory>
#include <utility>
#include <vector>

namespace platform {

namespace {

// On the main thread only. Never freed itself, because at its end there is no event loop to take leave of.
std::vector<std::shared_ptr<PageLoad>>& retiredPages()
{
    static auto* const pages = new std::vector<std::shared_ptr<PageLoad>>;
    return *pages;
}

} // namespace

WebView::WebView()
    : m_mainFrame(new WebFrame(*this))
{
}

WebView::~WebView()
{
    m_frameLoadDelegate = nullptr;
    m_resourceLoadDelegate = nullptr;
    retirePage();
}

bool WebView::isLoading() const
{
    return m_page && m_page->isLoading();
}

void WebView::stopLoading()
{
    const std::shared_ptr<PageLoad> page = m_page;
    if (page)
        page->stop();
}

void WebView::load(const URLRequest& request)
{
    stopLoading();
    retirePage();
    m_mainFrame->reset();
    m_page = std::make_shared<PageLoad>(*this, request.url());
    const std::shared_ptr<PageLoad> page = m_page;
    page->start(request);
}

void WebView::retirePage()
{
    if (!m_page)
        return;
    m_page->stop();
    // One of its steps may be what called us; it is freed when that has returned. The event that frees it must
    // not own it: an application that ends discards its events under a lock that the page's network needs.
    if (QCoreApplication::instance()) {
        retiredPages().push_back(std::exchange(m_page, nullptr));
        inLaterTurn([] { retiredPages().clear(); });
    }
    m_page.reset();
}

} // namespace platform
