// SPDX-License-Identifier: MIT
#include "platform/webview/ResourceLoad.h"

#include "platform/webview/PageLoad.h"
#include "platform/webview/UrlText.h"
#include "platform/webview/WebResourceLoadDelegate.h"

namespace platform {

ResourceLoad::ResourceLoad(PageLoad& page, std::shared_ptr<WebDataSource> dataSource, URLRequest request)
    : m_page(page)
    , m_dataSource(std::move(dataSource))
    , m_request(std::move(request))
{
}

ResourceLoad::~ResourceLoad()
{
    cancel();
}

void ResourceLoad::start(const FetchRequest& request, Steps steps)
{
    m_steps = std::move(steps);
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        m_identifier = delegate->webViewIdentifierForInitialRequestFromDataSource(m_page.view(), m_request,
                                                                                  *m_dataSource);
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        delegate->webViewResourceWillSendRequestRedirectResponseFromDataSource(
            m_page.view(), m_identifier, m_request, nullptr, *m_dataSource);
    if (m_page.isStopped())
        return;
    m_fetch = Fetch::create(request, m_page.limits(), m_page.session());
    m_fetch->start(*this);
}

void ResourceLoad::cancel()
{
    if (m_fetch)
        std::exchange(m_fetch, nullptr)->cancel();
    m_waiting.clear();
}

void ResourceLoad::whenEnded(std::function<void()> work)
{
    if (m_state == State::Loading)
        m_waiting += std::move(work);
    else
        work();
}

void ResourceLoad::fetchRedirected(const URLResponse& redirect, const QString& address)
{
    const URLRequest next(urlOfAddress(address));
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        delegate->webViewResourceWillSendRequestRedirectResponseFromDataSource(
            m_page.view(), m_identifier, next, &redirect, *m_dataSource);
    if (!m_page.isStopped() && m_steps.redirected)
        m_steps.redirected(address);
}

void ResourceLoad::fetchChallenged(const URLResponse& response)
{
    AuthenticationChallenge challenge(response);
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        delegate->webViewResourceDidReceiveAuthenticationChallengeFromDataSource(m_page.view(), m_identifier,
                                                                                 challenge, *m_dataSource);
}

void ResourceLoad::fetchResponded(const URLResponse& response)
{
    m_response = response;
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        delegate->webViewResourceDidReceiveResponseFromDataSource(m_page.view(), m_identifier, m_response,
                                                                  *m_dataSource);
    if (!m_page.isStopped() && m_steps.responded)
        m_steps.responded(m_response);
}

bool ResourceLoad::fetchReceived(qint64 byteCount)
{
    if (!m_page.takeBytes(byteCount))
        return false;
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        delegate->webViewResourceDidReceiveContentLengthFromDataSource(m_page.view(), m_identifier, byteCount,
                                                                       *m_dataSource);
    return true;
}

void ResourceLoad::fetchFinished(const QByteArray& body)
{
    m_body = body;
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        delegate->webViewResourceDidFinishLoadingFromDataSource(m_page.view(), m_identifier, *m_dataSource);
    end(State::Finished);
}

void ResourceLoad::fetchFailed(const Error& error)
{
    m_error = error;
    if (WebResourceLoadDelegate* delegate = m_page.resourceLoadDelegate())
        delegate->webViewResourceDidFailLoadingWithErrorFromDataSource(m_page.view(), m_identifier, m_error,
                                                                       *m_dataSource);
    end(State::Failed);
}

void ResourceLoad::end(State state)
{
    m_state = state;
    if (m_page.isStopped())
        return;
    for (const std::function<void()>& work : std::exchange(m_waiting, {}))
        work();
}

} // namespace platform
