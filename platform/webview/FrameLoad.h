// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/FrameResources.h"
#include "platform/webview/URLRequest.h"

#include <memory>
#include <vector>

namespace platform {

class PageLoad;
class WebDataSource;
class WebFrame;
class WebFrameLoadDelegate;

// What a frame is to show.
struct FrameContent {
    URLRequest request;
    // Empty for a frame without an address.
    QString address;
    // The document itself, in UTF-8, for a srcdoc.
    QByteArray text;
    // Of the document around it; for a document without an address of its own.
    QString base;
    QString origin;
    QString encoding;
};

// The load of one frame: its document, what that shows, the frames within it.
class FrameLoad : public std::enable_shared_from_this<FrameLoad> {
public:
    FrameLoad(PageLoad& page, WebFrame& frame, FrameContent content, FrameLoad* parent);

    void start();
    // The page was stopped; reports the frame as failed unless it has ended.
    void cancelled();
    [[nodiscard]] bool hasEnded() const { return m_state == State::Ended; }

private:
    enum class State { Provisional, Committed, Ended };

    void startTransfer();
    void showText();
    void redirected(const QString& address);
    void responded(const URLResponse& response);
    void transferEnded();
    void commit(const URLResponse& response);
    void documentArrived(const QByteArray& data);
    void scanStep();
    void addFrame(const PageReference& reference);
    [[nodiscard]] bool wouldContainItself(const QString& address) const;
    void endWhenComplete();
    void fail(const Error& error);
    void tellParent();
    [[nodiscard]] WebFrameLoadDelegate* delegate() const;
    [[nodiscard]] int depth() const;
    // What the policy judges this document by.
    [[nodiscard]] QString origin() const;
    // A call of the member, unless the load is stopped or gone by then.
    std::function<void()> guarded(void (FrameLoad::*step)());

    PageLoad& m_page;
    WebFrame& m_frame;
    FrameContent m_content;
    FrameLoad* m_parent;
    State m_state = State::Provisional;
    std::shared_ptr<WebDataSource> m_dataSource;
    std::shared_ptr<ResourceLoad> m_transfer;
    std::unique_ptr<PageScanner> m_scanner;
    bool m_scanned = false;
    std::shared_ptr<FrameResources> m_resources;
    std::vector<std::shared_ptr<FrameLoad>> m_children;
};

} // namespace platform
