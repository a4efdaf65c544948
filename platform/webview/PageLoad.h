// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/LoadLimits.h"
#include "platform/webview/LoadPolicy.h"
#include "platform/webview/NetworkSession.h"
#include "platform/webview/ResourceLoad.h"

#include <QHash>
#include <QUrl>

#include <memory>
#include <vector>

namespace platform {

class FrameLoad;
class WebFrame;
class WebResourceLoadDelegate;
class WebView;
struct FrameContent;

// One load of a page into a view, until it ends or is stopped: its frames, its transfers, what is left of
// its limits, and its connections and cookies, which no other page shares.
class PageLoad {
public:
    PageLoad(WebView& view, const QUrl& url);
    ~PageLoad();
    PageLoad(const PageLoad&) = delete;
    PageLoad& operator=(const PageLoad&) = delete;

    void start(const URLRequest& request);
    // Ends everything; frames that had not ended are reported as cancelled, the main frame last.
    void stop();

    // Null once the load has stopped, so that nothing is reported after that.
    [[nodiscard]] WebResourceLoadDelegate* resourceLoadDelegate() const;
    [[nodiscard]] WebView& view() const { return m_view; }
    [[nodiscard]] const LoadLimits& limits() const { return m_limits; }
    [[nodiscard]] const LoadPolicy& policy() const { return m_policy; }
    [[nodiscard]] bool isStopped() const { return m_stopped; }
    [[nodiscard]] bool isLoading() const;

    [[nodiscard]] NetworkSession& session() { return m_session; }

    // Each takes from what the limits allow; false when nothing is left.
    [[nodiscard]] bool takeBytes(qint64 byteCount);
    [[nodiscard]] bool takeResource();
    [[nodiscard]] bool takeFrame();
    [[nodiscard]] bool takeReference();
    [[nodiscard]] bool hasReferences() const { return m_referencesLeft > 0; }

    // A frame within the page begins to load.
    std::shared_ptr<FrameLoad> startFrame(WebFrame& frame, FrameContent content, FrameLoad* parent);

    [[nodiscard]] bool hasResource(const QString& address) const { return m_resources.contains(address); }
    // The transfer of a sub-resource: the one under way or done for another frame, or a new one.
    std::shared_ptr<ResourceLoad> resource(const FetchRequest& request,
                                           const std::shared_ptr<WebDataSource>& dataSource);
    // A document's transfer, which is shared with nobody.
    std::shared_ptr<ResourceLoad> document(const URLRequest& request,
                                           const std::shared_ptr<WebDataSource>& dataSource);

private:
    WebView& m_view;
    LoadLimits m_limits;
    LoadPolicy m_policy;
    qint64 m_bytesLeft;
    int m_resourcesLeft;
    int m_framesLeft;
    int m_referencesLeft;
    bool m_stopped = false;
    // Before the transfers, which use it to their end.
    NetworkSession m_session;
    std::vector<std::shared_ptr<FrameLoad>> m_frames;
    std::vector<std::shared_ptr<ResourceLoad>> m_documents;
    QHash<QString, std::shared_ptr<ResourceLoad>> m_resources;
};

} // namespace platform
