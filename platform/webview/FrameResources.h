// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/PageScanner.h"
#include "platform/webview/ResourceLoad.h"
#include "platform/webview/StyleScanner.h"
#include "platform/webview/WebResource.h"

#include <QHash>

#include <memory>
#include <vector>

namespace platform {

class PageLoad;

// What one frame's document shows besides itself: loads it, reads its style sheets, and follows them.
class FrameResources : public std::enable_shared_from_this<FrameResources> {
public:
    // origin is what the load policy judges the document by; encoding is the document's.
    FrameResources(PageLoad& page, std::shared_ptr<WebDataSource> dataSource, QString origin,
                   QString encoding);

    // Takes up what the document refers to, other than frames.
    void add(const PageReference& reference);

    // Called each time when the last load and the last style sheet are done.
    void setIdleHandler(std::function<void()> handler) { m_idleHandler = std::move(handler); }
    [[nodiscard]] bool isIdle() const { return m_pending == 0 && m_scanning.isEmpty(); }

    // What was received, in the document's order, each once.
    [[nodiscard]] QList<WebResource> received() const;

    // The same resources where a reader of the archive looks for them at another address: it takes what
    // a redirected style sheet refers to as relative to the address that asks for the sheet. They count
    // against the page's limits.
    [[nodiscard]] QList<WebResource> displaced();

private:
    using Index = int;

    struct Reference {
        Index node;
        // As a style sheet writes it.
        QString text;
    };

    // A resource, or a text of styles in the document (without an address).
    struct Node {
        QString address;
        std::shared_ptr<ResourceLoad> load;
        // The resources that it refers to, in order.
        QList<Reference> children;
        std::unique_ptr<StyleScanner> scanner;
        // What its references are judged by.
        QString origin;
        QString referringEncoding;
        bool isSheet = false;
        bool applies = true;
        bool isImage = false;
        // Another frame began its transfer.
        bool isShared = false;
        bool usable = false;
    };

    // Adds the resource to the parent's references (to the document's, for -1) and loads it if that is new.
    void refer(Index parent, const FetchRequest& request, const PageReference& reference,
               const QString& origin, const QString& text = {});
    void referStyle(Index parent, const StyleReference& style, const QString& origin,
                    const QString& referrer);
    void ended(Index index);
    void scanSheet(Index index);
    void addStyleText(const PageReference& reference);
    void addScanner(Index index, std::unique_ptr<StyleScanner> scanner);
    void scanStep();
    void reportIdle();
    QList<Reference>& references(Index parent)
    {
        return parent < 0 ? m_roots : m_nodes[size_t(parent)].children;
    }
    [[nodiscard]] bool isReceived(const QString& address) const;
    [[nodiscard]] static WebResource resourceAt(const QString& address, const Node& node);

    PageLoad& m_page;
    std::shared_ptr<WebDataSource> m_dataSource;
    QString m_origin;
    QString m_encoding;
    std::vector<Node> m_nodes;
    QHash<QString, Index> m_byAddress;
    QList<Reference> m_roots;
    // Nodes whose styles are being read.
    QList<Index> m_scanning;
    int m_pending = 0;
    std::function<void()> m_idleHandler;
};

} // namespace platform
