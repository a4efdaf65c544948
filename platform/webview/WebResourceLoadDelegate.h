// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/webview/AuthenticationChallenge.h"
#include "platform/webview/URLRequest.h"

namespace platform {

class WebDataSource;
class WebView;

// Told of each transfer, on the main thread, in this order: the initial request; each request that is
// sent, with the redirect that led to it; a challenge; the response; its bytes; the end or the failure.
//
// Each transfer is known by the identifier that the delegate gave to its initial request; a null text is
// none. What needs no transfer is not reported: an empty frame, a srcdoc, an image with its data in its
// address. A resource that several frames show is transferred, and reported, once. A load that is stopped
// ends its transfers without a report.
class WebResourceLoadDelegate {
public:
    virtual ~WebResourceLoadDelegate() = default;

    virtual QString webViewIdentifierForInitialRequestFromDataSource(WebView&, const URLRequest&,
                                                                     WebDataSource&)
    {
        return {};
    }
    // redirect is null for the first request of a transfer.
    virtual void webViewResourceWillSendRequestRedirectResponseFromDataSource(WebView&,
                                                                              const QString& /*identifier*/,
                                                                              const URLRequest&,
                                                                              const URLResponse* /*redirect*/,
                                                                              WebDataSource&)
    {
    }
    virtual void webViewResourceDidReceiveAuthenticationChallengeFromDataSource(WebView&,
                                                                                const QString& /*identifier*/,
                                                                                AuthenticationChallenge&,
                                                                                WebDataSource&)
    {
    }
    virtual void webViewResourceDidReceiveResponseFromDataSource(WebView&, const QString& /*identifier*/,
                                                                 const URLResponse&, WebDataSource&)
    {
    }
    virtual void webViewResourceDidReceiveContentLengthFromDataSource(WebView&, const QString& /*identifier*/,
                                                                      qint64 /*byteCount*/, WebDataSource&)
    {
    }
    virtual void webViewResourceDidFinishLoadingFromDataSource(WebView&, const QString& /*identifier*/,
                                                               WebDataSource&)
    {
    }
    virtual void webViewResourceDidFailLoadingWithErrorFromDataSource(WebView&, const QString& /*identifier*/,
                                                                      const Error&, WebDataSource&)
    {
    }
};

} // namespace platform
