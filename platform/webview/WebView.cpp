// SPDX-License-Identifier: MIT
#include "platform/webview/WebView.h"

#include "platform/webview/PageLoad.h"

#include <QCoreApplication>

namespace platform {

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
    // One of its steps may be what called us; it is freed when that has returned.
    if (QCoreApplication::instance())
        inLaterTurn([page = std::exchange(m_page, nullptr)] {});
    m_page.reset();
}

} // namespace platform
