// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/LoadLimits.h"
#include "platform/webview/WebFrame.h"
#include "platform/webview/WebFrameLoadDelegate.h"
#include "platform/webview/WebPreferences.h"
#include "platform/webview/WebResourceLoadDelegate.h"

#include <memory>

namespace platform {

class PageLoad;

// An offscreen view that loads a page and everything it shows, and draws nothing.
//
// It lives on the main thread, in the event loop, and needs no display. It is destroyed there, too, and
// never from within a report to one of its delegates.
class WebView {
public:
    WebView();
    WebView(const WebView&) = delete;
    WebView& operator=(const WebView&) = delete;
    // Ends a load without a report.
    ~WebView();

    [[nodiscard]] WebFrame& mainFrame() { return *m_mainFrame; }

    [[nodiscard]] const WebPreferences& preferences() const { return m_preferences; }
    void setPreferences(const WebPreferences& preferences) { m_preferences = preferences; }

    // The media type for which styles are chosen: "screen", unless set.
    [[nodiscard]] const QString& mediaStyle() const { return m_mediaStyle; }
    void setMediaStyle(const QString& mediaStyle) { m_mediaStyle = mediaStyle; }

    // Neither is owned; null for none. They must be cleared before they are destroyed.
    void setFrameLoadDelegate(WebFrameLoadDelegate* delegate) { m_frameLoadDelegate = delegate; }
    [[nodiscard]] WebFrameLoadDelegate* frameLoadDelegate() const { return m_frameLoadDelegate; }
    void setResourceLoadDelegate(WebResourceLoadDelegate* delegate) { m_resourceLoadDelegate = delegate; }
    [[nodiscard]] WebResourceLoadDelegate* resourceLoadDelegate() const { return m_resourceLoadDelegate; }

    // Holds for loads that begin after it is set.
    void setLimits(const LoadLimits& limits) { m_limits = limits; }

    // True until every frame has ended; false when the main frame is reported finished.
    [[nodiscard]] bool isLoading() const;

    // Ends the load. Each frame that had not ended is reported as failed with UrlErrorCancelled, from
    // within this call, the main frame last. Does nothing when nothing is being loaded.
    void stopLoading();

private:
    friend class FrameLoad;
    friend class PageLoad;
    friend class WebFrame;

    void load(const URLRequest& request);
    void retirePage();

    WebPreferences m_preferences;
    QString m_mediaStyle = QStringLiteral("screen");
    WebFrameLoadDelegate* m_frameLoadDelegate = nullptr;
    WebResourceLoadDelegate* m_resourceLoadDelegate = nullptr;
    LoadLimits m_limits;
    std::unique_ptr<WebFrame> m_mainFrame;
    std::shared_ptr<PageLoad> m_page;
};

} // namespace platform
