// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/operations/Operation.h"
#include "platform/webview/WebView.h"
#include "webcapture/WebFrameBMExtensions.h"

#include <QUrl>

#include <atomic>
#include <memory>
#include <optional>

// Loads one page with everything that it shows and makes a web archive of it.
//
// start() returns at once; the page loads on the main thread, in its event loop, and then the
// operation is finished. So the thread that waits for it must not be the main thread. There is no
// time limit: the operation ends when the page has ended, or is cancelled.
//
// Held by a shared pointer. It is let go of when it has finished, or else on the main thread.
class EvernoteWebConversionOperation
    : public platform::Operation,
      public std::enable_shared_from_this<EvernoteWebConversionOperation>,
      private platform::WebFrameLoadDelegate,
      private platform::WebResourceLoadDelegate {
public:
    EvernoteWebConversionOperation();
    ~EvernoteWebConversionOperation() override;

    // What is loaded: a web address, or a local page's file. To be set before the start, as is the
    // next.
    [[nodiscard]] const QUrl& originalURL() const { return m_originalURL; }
    void setOriginalURL(const QUrl& url) { m_originalURL = url; }
    // The clip's web address, which the archive names.
    [[nodiscard]] const QUrl& originalWebURL() const { return m_originalWebURL; }
    void setOriginalWebURL(const QUrl& url) { m_originalWebURL = url; }

    // The results, to be read when the operation has finished: the archive's file data or the
    // error. A cancelled operation has neither.
    [[nodiscard]] const std::optional<QByteArray>& webArchiveData() const
    {
        return m_webArchiveData;
    }
    [[nodiscard]] const std::optional<platform::Error>& operationError() const
    {
        return m_operationError;
    }

    // Of the main thread alone. The view is there while the page loads; null before and after.
    [[nodiscard]] platform::WebView* offscreenWebView() { return m_offscreenWebView.get(); }
    [[nodiscard]] const CachedResponses& cachedResponses() const { return m_cachedResponses; }

    [[nodiscard]] bool isAsynchronous() const override { return true; }
    void start() override;
    // From any thread, at any time. The operation is finished at once; the load ends soon after.
    void cancel() override;

protected:
    void main() override;

private:
    QString
    webViewIdentifierForInitialRequestFromDataSource(platform::WebView& view,
                                                     const platform::URLRequest& request,
                                                     platform::WebDataSource& dataSource) override;
    void webViewResourceDidReceiveResponseFromDataSource(
        platform::WebView& view, const QString& identifier, const platform::URLResponse& response,
        platform::WebDataSource& dataSource) override;
    void webViewResourceDidReceiveAuthenticationChallengeFromDataSource(
        platform::WebView& view, const QString& identifier,
        platform::AuthenticationChallenge& challenge, platform::WebDataSource& dataSource) override;
    void webViewDidFinishLoadForFrame(platform::WebView& view, platform::WebFrame& frame) override;
    void webViewDidFailLoadWithErrorForFrame(platform::WebView& view, const platform::Error& error,
                                             platform::WebFrame& frame) override;
    void webViewDidFailProvisionalLoadWithErrorForFrame(platform::WebView& view,
                                                        const platform::Error& error,
                                                        platform::WebFrame& frame) override;

    void handleWebViewError(const platform::Error& error);
    void load();
    void releaseView();
    void releaseViewSoon();
    // True for the first caller alone, who then gives the results, if any, and finishes the
    // operation.
    [[nodiscard]] bool claimEnd() { return !m_ended.exchange(true); }
    void endWithError(const platform::Error& error);
    void setOperationFinished();

    QUrl m_originalURL;
    QUrl m_originalWebURL;
    std::optional<QByteArray> m_webArchiveData;
    std::optional<platform::Error> m_operationError;
    CachedResponses m_cachedResponses;
    std::atomic<bool> m_ended = false;
    // Last, since it reports to the rest until it is gone.
    std::unique_ptr<platform::WebView> m_offscreenWebView;
};
