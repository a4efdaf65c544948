// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/FrameElement.h"
#include "platform/webview/WebArchive.h"
#include "platform/webview/WebDataSource.h"

#include <memory>
#include <vector>

namespace platform {

class WebView;

// A frame of a view: the main frame, or one that an element of another frame's document hosts.
class WebFrame {
public:
    WebFrame(const WebFrame&) = delete;
    WebFrame& operator=(const WebFrame&) = delete;
    ~WebFrame();

    // Unique in the view. The hosting element's name where that is free; else one made from the frame's
    // place, such as "<!--framePath //<!--frame0-->-->". Empty for the main frame.
    [[nodiscard]] const QString& name() const { return m_name; }
    [[nodiscard]] WebView& webView() const { return m_view; }
    // Null for the main frame.
    [[nodiscard]] WebFrame* parentFrame() const { return m_parent; }
    // In document order; they live until another page is loaded.
    [[nodiscard]] QList<WebFrame*> childFrames() const;
    // The element that hosts the frame; null for the main frame.
    [[nodiscard]] const FrameElement* frameElement() const { return m_parent ? &m_element : nullptr; }

    // Loads a page into the view. Only the main frame is asked; any other frame loads with its page.
    void loadRequest(const URLRequest& request);

    // What the frame shows; null until a document has begun to arrive.
    [[nodiscard]] WebDataSource* dataSource() const { return m_dataSource.get(); }
    // What it is waiting for; null when the load is committed or there is none.
    [[nodiscard]] WebDataSource* provisionalDataSource() const { return m_provisional.get(); }

    // This frame or one within it, else one elsewhere in the view, by exact name; also "_self", "_parent"
    // and "_top". Null when there is none.
    [[nodiscard]] WebFrame* findFrameNamed(const QString& name);

    // The archive of the document that the frame shows and of the frames within it that did not fail;
    // none when it shows none.
    [[nodiscard]] std::optional<WebArchive> webArchive() const;

private:
    friend class FrameLoad;
    friend class WebView;

    explicit WebFrame(WebView& view)
        : m_view(view)
    {
    }
    WebFrame& appendChild(const FrameElement& element, const QString& name);
    [[nodiscard]] QString uniqueNameForChild(const QString& wanted);
    [[nodiscard]] WebFrame* findWithin(const QString& name);
    void reset();

    WebView& m_view;
    WebFrame* m_parent = nullptr;
    QString m_name;
    FrameElement m_element;
    std::shared_ptr<WebDataSource> m_dataSource;
    std::shared_ptr<WebDataSource> m_provisional;
    std::vector<std::unique_ptr<WebFrame>> m_children;
};

} // namespace platform
