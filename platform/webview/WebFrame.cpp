// SPDX-License-Identifier: MIT
#include "platform/webview/WebFrame.h"

#include "platform/webview/WebView.h"

namespace platform {
namespace {

const QString pathPrefix = QStringLiteral("<!--framePath ");
const QString pathSuffix = QStringLiteral("-->");

} // namespace

WebFrame::~WebFrame() = default;

QList<WebFrame*> WebFrame::childFrames() const
{
    QList<WebFrame*> result;
    for (const std::unique_ptr<WebFrame>& child : m_children)
        result += child.get();
    return result;
}

void WebFrame::loadRequest(const URLRequest& request)
{
    if (!m_parent)
        m_view.load(request);
}

WebFrame* WebFrame::findFrameNamed(const QString& name)
{
    if (name.isEmpty())
        return nullptr;
    if (name == QLatin1String("_self"))
        return this;
    if (name == QLatin1String("_parent"))
        return m_parent ? m_parent : this;
    WebFrame& top = m_view.mainFrame();
    if (name == QLatin1String("_top"))
        return &top;
    WebFrame* found = findWithin(name);
    return found ? found : top.findWithin(name);
}

WebFrame* WebFrame::findWithin(const QString& name)
{
    QList<WebFrame*> waiting = {this};
    while (!waiting.isEmpty()) {
        WebFrame* frame = waiting.takeFirst();
        if (frame->m_name == name)
            return frame;
        waiting += frame->childFrames();
    }
    return nullptr;
}

std::optional<WebArchive> WebFrame::webArchive() const
{
    if (!m_dataSource)
        return std::nullopt;
    QList<WebArchive> frames;
    // Frames nest no deeper than the view's limits allow.
    for (const std::unique_ptr<WebFrame>& child : m_children) {
        const std::optional<WebArchive> archive = child->webArchive();
        if (archive && !child->m_dataSource->hasFailed())
            frames += *archive;
    }
    return WebArchive(m_dataSource->mainResource(),
                      m_dataSource->subresources() + m_dataSource->displacedResources(), frames);
}

WebFrame& WebFrame::appendChild(const FrameElement& element, const QString& name)
{
    std::unique_ptr<WebFrame> child(new WebFrame(m_view));
    child->m_parent = this;
    child->m_element = element;
    child->m_name = uniqueNameForChild(name);
    m_children.push_back(std::move(child));
    return *m_children.back();
}

// A frame without a free name of its own is named for its path: the names of the frames above it, up to
// one that has such a path itself, and its number among its siblings.
QString WebFrame::uniqueNameForChild(const QString& wanted)
{
    if (!wanted.isEmpty() && wanted != QLatin1String("_blank") && !findFrameNamed(wanted))
        return wanted;
    QStringList names;
    QString start;
    for (const WebFrame* frame = this; frame; frame = frame->m_parent) {
        if (frame->m_name.startsWith(pathPrefix)) {
            start = frame->m_name.mid(pathPrefix.size()).chopped(pathSuffix.size());
            break;
        }
        names.prepend(frame->m_name);
    }
    QString path = pathPrefix + start;
    for (const QString& name : names)
        path += QLatin1Char('/') + name;
    return path + QStringLiteral("/<!--frame%1-->").arg(m_children.size()) + pathSuffix;
}

void WebFrame::reset()
{
    m_children.clear();
    m_dataSource.reset();
    m_provisional.reset();
}

} // namespace platform
