// SPDX-License-Identifier: MIT
#include "platform/webview/FrameResources.h"

#include "platform/webview/ContentType.h"
#include "platform/webview/PageLoad.h"
#include "platform/webview/TextEncoding.h"
#include "platform/webview/UrlText.h"
#include "platform/webview/WebDataSource.h"
#include "platform/webview/WebView.h"

#include <QSet>

namespace platform {
namespace {

// As much style text as is read in one turn of the event loop; a millisecond or two.
constexpr qsizetype stepBytes = 64 << 10;

QByteArray acceptHeader(PageReference::Kind kind)
{
    switch (kind) {
    case PageReference::Kind::StyleSheet:
        return "text/css,*/*;q=0.1";
    case PageReference::Kind::Image:
    case PageReference::Kind::Icon:
        return "image/png,image/svg+xml,image/*;q=0.8,*/*;q=0.5";
    default:
        return "*/*";
    }
}

} // namespace

FrameResources::FrameResources(PageLoad& page, std::shared_ptr<WebDataSource> dataSource, QString origin,
                               QString encoding)
    : m_page(page)
    , m_dataSource(std::move(dataSource))
    , m_origin(std::move(origin))
    , m_encoding(std::move(encoding))
{
}

void FrameResources::add(const PageReference& reference)
{
    if (!reference.text.isEmpty())
        addStyleText(reference);
    else if (!reference.address.isEmpty())
        refer(-1, {reference.address, m_origin, acceptHeader(reference.kind)}, reference, m_origin);
}

void FrameResources::refer(Index parent, const FetchRequest& request, const PageReference& reference,
                           const QString& origin, const QString& text)
{
    if (!m_page.takeReference())
        return;
    const bool isSheet = reference.kind == PageReference::Kind::StyleSheet;
    const auto known = m_byAddress.constFind(request.address);
    if (known != m_byAddress.cend()) {
        const Index index = *known;
        if (references(parent).isEmpty() || references(parent).last().node != index)
            references(parent) += Reference{index, text};
        Node& node = m_nodes[size_t(index)];
        const bool appliesNow = isSheet && reference.applies && !node.applies;
        if (isSheet && (!node.isSheet || appliesNow)) {
            node.isSheet = true;
            node.applies = reference.applies;
            if (node.load->state() != ResourceLoad::State::Loading)
                scanSheet(index);
        }
        return;
    }
    if (!m_page.policy().mayLoad(request.address, origin) || !m_page.takeResource())
        return;
    const Index index = Index(m_nodes.size());
    Node node;
    node.address = request.address;
    node.origin = isWebAddress(request.address) || isFileAddress(request.address) ? request.address : origin;
    node.referringEncoding = reference.charset.isEmpty() ? m_encoding : reference.charset;
    node.isSheet = isSheet;
    node.applies = reference.applies;
    node.isImage =
        reference.kind == PageReference::Kind::Image || reference.kind == PageReference::Kind::Icon;
    m_nodes.push_back(std::move(node));
    m_byAddress.insert(request.address, index);
    references(parent) += Reference{index, text};
    ++m_pending;
    m_nodes.back().isShared = m_page.hasResource(request.address);
    const std::shared_ptr<ResourceLoad> load = m_page.resource(request, m_dataSource);
    if (m_page.isStopped())
        return;
    m_nodes[size_t(index)].load = load;
    load->whenEnded([weak = weak_from_this(), index] {
        // Even what is at hand already arrives in a turn of its own, so that a chain of sheets is no
        // recursion.
        inLaterTurn([weak, index] {
            const std::shared_ptr<FrameResources> self = weak.lock();
            if (self && !self->m_page.isStopped())
                self->ended(index);
        });
    });
}

void FrameResources::ended(Index index)
{
    --m_pending;
    Node& node = m_nodes[size_t(index)];
    if (node.load->state() == ResourceLoad::State::Finished) {
        // A picture that comes with an error is shown all the same; an error page in its place is not.
        const URLResponse& response = node.load->response();
        const bool isError = response.statusCode().value_or(200) >= 400;
        node.usable = !isError || (node.isImage && isImageType(response.mimeType()));
        if (response.absoluteString() != node.address && isWebAddress(response.absoluteString()))
            node.origin = response.absoluteString();
        if (node.isShared && !m_page.takeBytes(node.load->body().size()))
            node.usable = false;
        if (node.isSheet)
            scanSheet(index);
    }
    reportIdle();
}

void FrameResources::scanSheet(Index index)
{
    Node& node = m_nodes[size_t(index)];
    const URLResponse& response = node.load->response();
    if (!node.usable || isHtmlType(response.mimeType()) || isXmlType(response.mimeType()))
        return;
    const DecodedText text =
        decodeStyleSheet(node.load->body(), response.textEncodingName(), node.referringEncoding);
    node.children.clear();
    addScanner(index, std::make_unique<StyleScanner>(text.utf8, response.absoluteString(),
                                                     m_page.view().mediaStyle(), StyleScanner::Form::Sheet,
                                                     node.applies));
}

void FrameResources::addStyleText(const PageReference& reference)
{
    const bool isElement = reference.kind == PageReference::Kind::StyleText;
    auto scanner = std::make_unique<StyleScanner>(
        reference.text, reference.base, m_page.view().mediaStyle(),
        isElement ? StyleScanner::Form::Sheet : StyleScanner::Form::Declarations, reference.applies);
    if (reference.text.size() <= stepBytes / 4) {
        scanner->advance(reference.text.size());
        for (const StyleReference& style : scanner->takeReferences())
            referStyle(-1, style, m_origin, m_origin);
        return;
    }
    const Index index = Index(m_nodes.size());
    m_nodes.emplace_back();
    m_nodes.back().origin = m_origin;
    m_roots += Reference{index, {}};
    addScanner(index, std::move(scanner));
}

void FrameResources::addScanner(Index index, std::unique_ptr<StyleScanner> scanner)
{
    m_nodes[size_t(index)].scanner = std::move(scanner);
    if (!m_scanning.contains(index))
        m_scanning += index;
    if (m_scanning.size() == 1)
        scanStep();
}

void FrameResources::scanStep()
{
    const Index index = m_scanning.first();
    // What the styles refer to may be this very sheet, and then it is given a new scanner meanwhile.
    std::unique_ptr<StyleScanner> scanner = std::move(m_nodes[size_t(index)].scanner);
    const bool atEnd = scanner->advance(stepBytes) || !m_page.hasReferences();
    const QString origin = m_nodes[size_t(index)].origin;
    for (const StyleReference& style : scanner->takeReferences()) {
        referStyle(index, style, origin, origin);
        if (m_page.isStopped())
            return;
    }
    Node& node = m_nodes[size_t(index)];
    if (!atEnd && !node.scanner)
        node.scanner = std::move(scanner);
    if (!node.scanner)
        m_scanning.removeFirst();
    if (m_scanning.isEmpty()) {
        reportIdle();
        return;
    }
    inLaterTurn([weak = weak_from_this()] {
        const std::shared_ptr<FrameResources> self = weak.lock();
        if (self && !self->m_page.isStopped())
            self->scanStep();
    });
}

void FrameResources::referStyle(Index parent, const StyleReference& style, const QString& origin,
                                const QString& referrer)
{
    PageReference reference;
    reference.kind = style.kind == StyleReference::Kind::Sheet ? PageReference::Kind::StyleSheet
                                                               : PageReference::Kind::Image;
    reference.applies = style.applies;
    const bool isFont = style.kind == StyleReference::Kind::Font;
    refer(parent, {style.address, referrer, isFont ? QByteArray("*/*") : acceptHeader(reference.kind)},
          reference, origin, style.text);
}

void FrameResources::reportIdle()
{
    if (isIdle() && m_idleHandler)
        m_idleHandler();
}

QList<WebResource> FrameResources::received() const
{
    QList<WebResource> result;
    QSet<Index> seen;
    QList<Reference> waiting(m_roots.crbegin(), m_roots.crend());
    while (!waiting.isEmpty()) {
        const Index index = waiting.takeLast().node;
        if (seen.contains(index))
            continue;
        seen.insert(index);
        const Node& node = m_nodes[size_t(index)];
        if (node.usable && !isDataAddress(node.address))
            result += resourceAt(node.address, node);
        for (auto child = node.children.crbegin(); child != node.children.crend(); ++child)
            waiting += *child;
    }
    return result;
}

QList<WebResource> FrameResources::displaced()
{
    QList<WebResource> result;
    // Sheets and where a reader takes them to be.
    std::vector<std::pair<Index, QString>> sheets;
    for (const Node& node : m_nodes) {
        if (node.usable && node.isSheet && node.load->response().absoluteString() != node.address)
            sheets.emplace_back(Index(&node - m_nodes.data()), node.address);
    }
    QSet<QString> added;
    while (!sheets.empty() && result.size() < m_page.limits().resources) {
        const auto [index, base] = sheets.back();
        sheets.pop_back();
        for (const Reference& reference : std::as_const(m_nodes[size_t(index)].children)) {
            const Node& node = m_nodes[size_t(reference.node)];
            const QString address = absoluteAddress(reference.text, base);
            if (!node.usable || address.isEmpty() || isReceived(address) || added.contains(address)
                || !m_page.takeBytes(node.load->body().size()))
                continue;
            added.insert(address);
            result += resourceAt(address, node);
            if (node.isSheet)
                sheets.emplace_back(reference.node, address);
        }
    }
    return result;
}

bool FrameResources::isReceived(const QString& address) const
{
    const auto known = m_byAddress.constFind(address);
    return isDataAddress(address) || (known != m_byAddress.cend() && m_nodes[size_t(*known)].usable);
}

WebResource FrameResources::resourceAt(const QString& address, const Node& node)
{
    const URLResponse& response = node.load->response();
    return WebResource(address, node.load->body(), response.mimeType(), response.textEncodingName());
}

} // namespace platform
