// SPDX-License-Identifier: MIT
#include "platform/webview/FrameLoad.h"

#include "platform/webview/ContentType.h"
#include "platform/webview/PageLoad.h"
#include "platform/webview/UrlText.h"
#include "platform/webview/WebView.h"

namespace platform {
namespace {

// As much markup as is read in one turn of the event loop; a millisecond or two.
constexpr qsizetype stepBytes = 64 << 10;

const QString blankAddress = QStringLiteral("about:blank");

} // namespace

FrameLoad::FrameLoad(PageLoad& page, WebFrame& frame, FrameContent content, FrameLoad* parent)
    : m_page(page)
    , m_frame(frame)
    , m_content(std::move(content))
    , m_parent(parent)
{
}

WebFrameLoadDelegate* FrameLoad::delegate() const
{
    return m_page.isStopped() ? nullptr : m_page.view().frameLoadDelegate();
}

std::function<void()> FrameLoad::guarded(void (FrameLoad::*step)())
{
    return [weak = weak_from_this(), step] {
        const std::shared_ptr<FrameLoad> self = weak.lock();
        if (self && !self->m_page.isStopped() && !self->hasEnded())
            (self.get()->*step)();
    };
}

int FrameLoad::depth() const
{
    int result = 0;
    for (const FrameLoad* load = m_parent; load; load = load->m_parent)
        ++result;
    return result;
}

QString FrameLoad::origin() const
{
    const QString& own = m_dataSource->response().absoluteString();
    return isWebAddress(own) || isFileAddress(own) ? own : m_content.origin;
}

void FrameLoad::start()
{
    m_dataSource = std::make_shared<WebDataSource>(m_frame, m_content.request);
    m_frame.m_provisional = m_dataSource;
    if (WebFrameLoadDelegate* receiver = delegate())
        receiver->webViewDidStartProvisionalLoadForFrame(m_page.view(), m_frame);
    if (m_page.isStopped())
        return;
    const bool isBlank = m_parent && m_content.address.isEmpty();
    if (isBlank || m_content.address == blankAddress || m_content.address == QLatin1String("about:srcdoc"))
        inLaterTurn(guarded(&FrameLoad::showText));
    else
        startTransfer();
}

void FrameLoad::startTransfer()
{
    if (!m_page.policy().mayLoad(m_content.address, m_content.origin) && !m_content.address.isEmpty()
        && isFileAddress(m_content.address)) {
        inLaterTurn([weak = weak_from_this()] {
            const std::shared_ptr<FrameLoad> self = weak.lock();
            if (self && !self->m_page.isStopped())
                self->fail(urlError(UrlErrorNoPermissionsToReadFile));
        });
        return;
    }
    m_transfer = m_page.document(m_content.request, m_dataSource);
    const std::weak_ptr<FrameLoad> weak = weak_from_this();
    ResourceLoad::Steps steps;
    steps.redirected = [weak](const QString& address) {
        if (const std::shared_ptr<FrameLoad> self = weak.lock())
            self->redirected(address);
    };
    steps.responded = [weak](const URLResponse& response) {
        if (const std::shared_ptr<FrameLoad> self = weak.lock())
            self->responded(response);
    };
    m_transfer->whenEnded(guarded(&FrameLoad::transferEnded));
    m_transfer->start({m_content.address, m_content.origin,
                       "text/html,application/xhtml+xml,application/xml;q=0.9,*/*;q=0.8"},
                      std::move(steps));
}

// A document that is at hand: an empty frame's or a srcdoc's.
void FrameLoad::showText()
{
    const QString address = m_content.address.isEmpty() ? blankAddress : m_content.address;
    commit(URLResponse(address, QStringLiteral("text/html"), m_content.text.size(), QStringLiteral("utf-8")));
    if (m_page.isStopped())
        return;
    if (!m_page.takeBytes(m_content.text.size()))
        fail(urlError(UrlErrorDataLengthExceedsMaximum));
    else if (m_content.text.isEmpty())
        documentArrived("<html><head></head><body></body></html>");
    else
        documentArrived(m_content.text);
}

void FrameLoad::redirected(const QString& address)
{
    m_dataSource->m_request = URLRequest(urlOfAddress(address));
    if (WebFrameLoadDelegate* receiver = delegate())
        receiver->webViewDidReceiveServerRedirectForProvisionalLoadForFrame(m_page.view(), m_frame);
    if (!m_page.isStopped() && m_parent && m_parent->wouldContainItself(address))
        fail(urlError(UrlErrorRedirectToNonExistentLocation));
}

void FrameLoad::responded(const URLResponse& response)
{
    const int status = response.statusCode().value_or(200);
    if (status == 204 || status == 205) {
        fail(urlError(UrlErrorZeroByteResource));
    } else if (!isShowableType(response.mimeType())) {
        fail(Error(webViewErrorDomain, WebViewErrorCannotShowMimeType));
    } else {
        commit(response);
    }
}

void FrameLoad::commit(const URLResponse& response)
{
    m_state = State::Committed;
    m_dataSource->m_response = response;
    m_frame.m_dataSource = m_dataSource;
    m_frame.m_provisional.reset();
    if (WebFrameLoadDelegate* receiver = delegate())
        receiver->webViewDidCommitLoadForFrame(m_page.view(), m_frame);
}

void FrameLoad::transferEnded()
{
    if (m_transfer->state() == ResourceLoad::State::Failed)
        fail(m_transfer->error());
    else
        documentArrived(m_transfer->body());
}

void FrameLoad::documentArrived(const QByteArray& data)
{
    const URLResponse& response = m_dataSource->m_response;
    const bool isHtml = isHtmlType(response.mimeType());
    const bool isMarkup = isHtml || isXmlType(response.mimeType());
    const MarkupKind kind = isHtml || !isMarkup ? MarkupKind::Html : MarkupKind::Xml;
    m_dataSource->m_data = data;
    if (isMarkup || response.mimeType().startsWith(QLatin1String("text/"))) {
        DecodedText text = decodeDocument(data, kind, response.textEncodingName(), m_content.encoding);
        m_dataSource->m_text = text.utf8.isNull() ? QByteArray("") : text.utf8;
        m_dataSource->m_textEncodingName = text.encoding;
    }
    m_resources =
        std::make_shared<FrameResources>(m_page, m_dataSource, origin(), m_dataSource->m_textEncodingName);
    m_resources->setIdleHandler(guarded(&FrameLoad::endWhenComplete));
    if (!isMarkup) {
        m_scanned = true;
        endWhenComplete();
        return;
    }
    const bool hasOwnBase =
        m_content.base.isEmpty() || !response.absoluteString().startsWith(QLatin1String("about:"));
    m_scanner = std::make_unique<PageScanner>(m_dataSource->m_text, kind,
                                              hasOwnBase ? response.absoluteString() : m_content.base,
                                              m_page.view().mediaStyle());
    scanStep();
}

void FrameLoad::scanStep()
{
    const bool atEnd = m_scanner->advance(stepBytes) || !m_page.hasReferences();
    for (const PageReference& reference : m_scanner->takeReferences()) {
        if (reference.kind == PageReference::Kind::Frame)
            addFrame(reference);
        else
            m_resources->add(reference);
        if (m_page.isStopped())
            return;
    }
    if (!atEnd) {
        inLaterTurn(guarded(&FrameLoad::scanStep));
        return;
    }
    m_dataSource->m_pageTitle = m_scanner->title();
    m_scanner.reset();
    m_scanned = true;
    WebFrameLoadDelegate* receiver = delegate();
    if (receiver && !m_dataSource->m_pageTitle.isEmpty())
        receiver->webViewDidReceiveTitleForFrame(m_page.view(), m_dataSource->m_pageTitle, m_frame);
    if (!m_page.isStopped())
        endWhenComplete();
}

void FrameLoad::addFrame(const PageReference& reference)
{
    if (depth() >= m_page.limits().frameDepth || wouldContainItself(reference.address) || !m_page.takeFrame()
        || !m_page.takeReference() || (!reference.address.isEmpty() && !m_page.takeResource()))
        return;
    WebFrame& child = m_frame.appendChild(reference.element, reference.element.name);
    FrameContent content;
    content.address = reference.address;
    content.request =
        URLRequest(reference.address.isEmpty() ? QUrl(blankAddress) : urlOfAddress(reference.address));
    content.text = reference.text;
    content.base = reference.base;
    content.origin = origin();
    content.encoding = m_dataSource->m_textEncodingName;
    m_children.push_back(m_page.startFrame(child, std::move(content), this));
}

// One repetition is allowed, since pages are known that hold themselves once, under a condition.
bool FrameLoad::wouldContainItself(const QString& address) const
{
    if (!isWebAddress(address) && !isFileAddress(address))
        return false;
    int count = 0;
    for (const FrameLoad* load = this; load; load = load->m_parent)
        count += load->m_dataSource->m_response.absoluteString() == address ? 1 : 0;
    return count >= 2;
}

void FrameLoad::endWhenComplete()
{
    if (hasEnded() || !m_scanned || !m_resources->isIdle())
        return;
    for (const std::shared_ptr<FrameLoad>& child : m_children) {
        if (!child->hasEnded())
            return;
    }
    m_state = State::Ended;
    m_dataSource->m_subresources = m_resources->received();
    m_dataSource->m_displacedResources = m_resources->displaced();
    m_dataSource->m_loading = false;
    if (WebFrameLoadDelegate* receiver = delegate())
        receiver->webViewDidFinishLoadForFrame(m_page.view(), m_frame);
    tellParent();
}

void FrameLoad::fail(const Error& error)
{
    if (hasEnded())
        return;
    const bool wasCommitted = m_state == State::Committed;
    m_state = State::Ended;
    m_dataSource->m_loading = false;
    m_dataSource->m_failed = true;
    m_frame.m_provisional.reset();
    if (m_transfer)
        m_transfer->cancel();
    if (m_resources)
        m_dataSource->m_subresources = m_resources->received();
    if (WebFrameLoadDelegate* receiver = delegate()) {
        if (wasCommitted)
            receiver->webViewDidFailLoadWithErrorForFrame(m_page.view(), error, m_frame);
        else
            receiver->webViewDidFailProvisionalLoadWithErrorForFrame(m_page.view(), error, m_frame);
    }
    tellParent();
}

void FrameLoad::tellParent()
{
    if (!m_page.isStopped() && m_parent)
        m_parent->endWhenComplete();
}

void FrameLoad::cancelled()
{
    if (hasEnded())
        return;
    const bool wasCommitted = m_state == State::Committed;
    m_state = State::Ended;
    m_dataSource->m_loading = false;
    m_frame.m_provisional.reset();
    if (m_resources)
        m_dataSource->m_subresources = m_resources->received();
    WebFrameLoadDelegate* receiver = m_page.view().frameLoadDelegate();
    if (!receiver)
        return;
    const Error error = urlError(UrlErrorCancelled);
    if (wasCommitted)
        receiver->webViewDidFailLoadWithErrorForFrame(m_page.view(), error, m_frame);
    else
        receiver->webViewDidFailProvisionalLoadWithErrorForFrame(m_page.view(), error, m_frame);
}

} // namespace platform
