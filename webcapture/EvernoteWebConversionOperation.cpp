// SPDX-License-Identifier: MIT
#include "webcapture/EvernoteWebConversionOperation.h"

#include "platform/operations/OperationQueue.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/webview/LoadErrors.h"
#include "platform/webview/UrlText.h"
#include "webcapture/WebArchiveCompletion.h"
#include "webcapture/WebConversionErrors.h"
#include "webcapture/WebPreferencesBMExtensions.h"

using platform::Error;
using platform::OperationQueue;
using platform::WebFrame;
using platform::WebView;

namespace {

const QString preferencesIdentifier = QStringLiteral("EvernoteDownload");
const QString mainRequestIdentifier = QStringLiteral("EvernoteWebConversionMainRequestIdentifier");

} // namespace

EvernoteWebConversionOperation::EvernoteWebConversionOperation() = default;

EvernoteWebConversionOperation::~EvernoteWebConversionOperation()
{
    if (!m_offscreenWebView)
        return;
    m_offscreenWebView->setFrameLoadDelegate(nullptr);
    m_offscreenWebView->setResourceLoadDelegate(nullptr);
    // Never within one of its own reports.
    OperationQueue::mainQueue().addOperationWithBlock(
        [view = std::shared_ptr<WebView>(std::move(m_offscreenWebView))] {});
}

void EvernoteWebConversionOperation::start()
{
    if (isCancelled() || isFinished()) {
        setOperationFinished();
        return;
    }
    beginExecuting();
    main();
    // A cancel between the first question and here has been overtaken by beginExecuting().
    if (isFinished())
        setOperationFinished();
}

void EvernoteWebConversionOperation::main()
{
    OperationQueue::mainQueue().addOperationWithBlock(
        [self = shared_from_this()] { self->load(); });
}

void EvernoteWebConversionOperation::cancel()
{
    Operation::cancel();
    if (!claimEnd())
        return;
    // The view is the main thread's.
    releaseViewSoon();
    setOperationFinished();
}

void EvernoteWebConversionOperation::load()
{
    if (isCancelled())
        return;
    m_offscreenWebView = std::make_unique<WebView>();
    platform::WebPreferences preferences = webPreferencesWithIdentifier(preferencesIdentifier);
    preferences.setShouldPrintBackgrounds(true);
    preferences.setCacheModel(platform::WebCacheModel::DocumentViewer);
    preferences.setPlugInsEnabled(false);
    preferences.setJavaScriptEnabled(false);
    preferences.setJavaEnabled(false);
    m_offscreenWebView->setPreferences(preferences);
    m_offscreenWebView->setMediaStyle(QStringLiteral("screen"));
    m_offscreenWebView->setFrameLoadDelegate(this);
    m_offscreenWebView->setResourceLoadDelegate(this);
    m_offscreenWebView->mainFrame().loadRequest(platform::URLRequest(m_originalURL));
}

QString EvernoteWebConversionOperation::webViewIdentifierForInitialRequestFromDataSource(
    WebView&, const platform::URLRequest& request, platform::WebDataSource&)
{
    // As text: some characters have two forms in a QUrl.
    const bool isMain =
        platform::addressOfUrl(request.url()) == platform::addressOfUrl(m_originalURL);
    return isMain ? mainRequestIdentifier : QString();
}

void EvernoteWebConversionOperation::webViewResourceDidReceiveResponseFromDataSource(
    WebView& view, const QString& identifier, const platform::URLResponse& response,
    platform::WebDataSource&)
{
    const std::optional<QByteArray> archived = platform::KeyedArchiver::archivedDataWithRootObject(
        std::make_shared<platform::URLResponse>(response));
    if (archived && !response.absoluteString().isEmpty())
        m_cachedResponses.insert(response.absoluteString(), *archived);
    const int status = response.statusCode().value_or(0);
    if (identifier != mainRequestIdentifier || status < 400 || status > 599)
        return;
    const QString text = platform::URLResponse::localizedStringForStatusCode(status);
    view.stopLoading();
    endWithError(webConversionErrorForStatus(status, text));
}

void EvernoteWebConversionOperation::webViewResourceDidReceiveAuthenticationChallengeFromDataSource(
    WebView&, const QString&, platform::AuthenticationChallenge& challenge,
    platform::WebDataSource&)
{
    challenge.continueWithoutCredential();
}

void EvernoteWebConversionOperation::webViewDidFinishLoadForFrame(WebView& view, WebFrame& frame)
{
    if (&frame != &view.mainFrame() || view.isLoading() || isCancelled() || isFinished())
        return;
    Error error;
    std::optional<QByteArray> data;
    if (const std::optional<platform::WebArchive> archive = frame.webArchive())
        data = archive->data(&error);
    // An archive that cannot be made is data that cannot be read.
    data = completedWebArchiveData(data.value_or(QByteArray()), frame, m_cachedResponses,
                                   m_originalWebURL, &error);
    if (!data) {
        endWithError(error);
    } else if (claimEnd()) {
        m_webArchiveData = std::move(data);
        releaseViewSoon();
        setOperationFinished();
    }
}

void EvernoteWebConversionOperation::webViewDidFailLoadWithErrorForFrame(WebView& view,
                                                                         const Error& error,
                                                                         WebFrame& frame)
{
    if (&frame == &view.mainFrame())
        handleWebViewError(error);
}

void EvernoteWebConversionOperation::webViewDidFailProvisionalLoadWithErrorForFrame(
    WebView& view, const Error& error, WebFrame& frame)
{
    if (&frame == &view.mainFrame())
        handleWebViewError(error);
}

void EvernoteWebConversionOperation::handleWebViewError(const Error& error)
{
    // Both say that somebody else ended the load, and will finish the operation.
    if (error.code() == platform::UrlErrorCancelled ||
        error.code() == platform::WebViewErrorFrameLoadInterrupted)
        return;
    m_offscreenWebView->stopLoading();
    endWithError(error);
}

void EvernoteWebConversionOperation::endWithError(const Error& error)
{
    if (!claimEnd())
        return;
    m_operationError = error;
    releaseViewSoon();
    setOperationFinished();
}

void EvernoteWebConversionOperation::releaseView()
{
    if (!m_offscreenWebView)
        return;
    m_offscreenWebView->stopLoading();
    m_offscreenWebView->setFrameLoadDelegate(nullptr);
    m_offscreenWebView->setResourceLoadDelegate(nullptr);
    m_offscreenWebView.reset();
}

// In a turn of its own, since a view must outlive its reports; what is queued keeps the operation
// alive until then, though the thread that waited for it may let it go at once.
void EvernoteWebConversionOperation::releaseViewSoon()
{
    OperationQueue::mainQueue().addOperationWithBlock(
        [self = shared_from_this()] { self->releaseView(); });
}

void EvernoteWebConversionOperation::setOperationFinished()
{
    finish();
}
