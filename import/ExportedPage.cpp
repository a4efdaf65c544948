// SPDX-License-Identifier: MIT
//
// What a page that the Evernote application exported is, before anything is made of it.
#include "import/EvernoteHTMLExportOperation.h"

#include "platform/core/CharacterSet.h"
#include "platform/files/FileManager.h"
#include "platform/files/ItemKind.h"
#include "platform/xml/XMLDocument.h"

#include <QFileInfo>

using platform::XMLElement;
using platform::XMLNode;

namespace {

bool isNamed(const XMLNode& node, QLatin1StringView name)
{
    return node.isElement() && node.name().compare(name, Qt::CaseInsensitive) == 0;
}

// White space between elements is the page's layout, not its content.
bool isBlank(const XMLNode& node)
{
    return node.kind() == XMLNode::Kind::Text &&
           platform::trimmedOfWhitespaceAndNewlines(node.stringValue()).isEmpty();
}

std::vector<XMLNode> contentOf(const XMLNode& node)
{
    std::vector<XMLNode> content = node.children();
    std::erase_if(content, isBlank);
    return content;
}

std::optional<QString> attributeOf(const XMLNode& node, const QString& name)
{
    const std::optional<XMLElement> element = node.toElement();
    if (!element)
        return std::nullopt;
    const std::optional<QString> value = element->attribute(name);
    return value ? value : element->attribute(name.toUpper());
}

// The last body of the page.
std::optional<XMLNode> bodyOf(const XMLElement& root)
{
    std::optional<XMLNode> body;
    if (!isNamed(root, QLatin1StringView("html")))
        return body;
    for (const XMLNode& child : root.children()) {
        if (isNamed(child, QLatin1StringView("body")))
            body = child;
    }
    return body;
}

// Where the body leads, if it is one link or one image; the link may stand in one element.
std::optional<QString> linkOf(const XMLNode& content)
{
    const QLatin1StringView anchor("a");
    if (isNamed(content, anchor))
        return attributeOf(content, QStringLiteral("href"));
    const std::vector<XMLNode> inner = contentOf(content);
    if (!inner.empty() && isNamed(inner.front(), anchor))
        return attributeOf(inner.front(), QStringLiteral("href"));
    if (isNamed(content, QLatin1StringView("img")))
        return attributeOf(content, QStringLiteral("src"));
    return std::nullopt;
}

bool isFile(const QString& path)
{
    const std::optional<platform::ItemKind> kind = platform::itemKind(path);
    return kind && !kind->isSymbolicLink && (!kind->isDirectory || kind->isPackage);
}

// The file that a link leads to, when it is one that lies below the page's folder. Named through
// that folder as the caller knows it, links on the way to it included.
std::optional<QString> fileBeside(const QString& page, const QString& link)
{
    const QString folder = QFileInfo(page).canonicalPath() + QLatin1Char('/');
    const QUrl url = QUrl::fromLocalFile(folder).resolved(QUrl(link));
    if (!url.isLocalFile())
        return std::nullopt;
    const QString path = QFileInfo(url.toLocalFile()).canonicalFilePath();
    if (!path.startsWith(folder) || !isFile(path))
        return std::nullopt;
    return QFileInfo(page).path() + QLatin1Char('/') + path.sliced(folder.size());
}

} // namespace

bool EvernoteHTMLExportOperation::exportedNoteAtPath(const QString& path, bool* isSingleAttachment,
                                                     QUrl* atURL, platform::Error* error)
{
    *isSingleAttachment = false;
    const std::optional<QByteArray> data = platform::readFile(path, error);
    if (!data)
        return false;
    const auto document =
        platform::XMLDocument::fromData(*data, platform::XMLDocument::Tidy::Yes, error);
    if (!document)
        return false;
    const std::optional<XMLNode> body = bodyOf(document->rootElement());
    if (!body)
        return false;
    const std::vector<XMLNode> content = contentOf(*body);
    if (content.size() != 1)
        return true;
    const std::optional<QString> link = linkOf(content.front());
    if (!link || link->startsWith(QLatin1String("http")))
        return true;
    if (const std::optional<QString> file = fileBeside(path, *link)) {
        *atURL = QUrl::fromLocalFile(*file);
        *isSingleAttachment = true;
    }
    return true;
}
