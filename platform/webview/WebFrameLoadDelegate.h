// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

namespace platform {

class WebFrame;
class WebView;

// Told of the loading of frames, on the main thread.
//
// A frame starts provisionally, is committed when its document begins to arrive, and ends finished or
// failed. A frame finishes after all frames within it have ended; the main frame last.
//
// A delegate may stop the view or load another page from within a report. It must not destroy the view.
class WebFrameLoadDelegate {
public:
    virtual ~WebFrameLoadDelegate() = default;

    virtual void webViewDidStartProvisionalLoadForFrame(WebView&, WebFrame&) {}
    virtual void webViewDidReceiveServerRedirectForProvisionalLoadForFrame(WebView&, WebFrame&) {}
    virtual void webViewDidFailProvisionalLoadWithErrorForFrame(WebView&, const Error&, WebFrame&) {}
    virtual void webViewDidCommitLoadForFrame(WebView&, WebFrame&) {}
    virtual void webViewDidReceiveTitleForFrame(WebView&, const QString&, WebFrame&) {}
    virtual void webViewDidFinishLoadForFrame(WebView&, WebFrame&) {}
    virtual void webViewDidFailLoadWithErrorForFrame(WebView&, const Error&, WebFrame&) {}
};

} // namespace platform
