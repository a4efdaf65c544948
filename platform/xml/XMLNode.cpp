// SPDX-License-Identifier: MIT
#include "platform/xml/XMLNode.h"

#include "platform/xml/XMLSerializer.h"
#include "platform/xml/XMLTree.h"

namespace platform {

namespace {

// What an XMLNode may stand for; a document's DTD, say, is passed over.
bool isVisible(const xmlNode* node)
{
    switch (node->type) {
    case XML_ELEMENT_NODE:
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE:
        return true;
    default:
        return false;
    }
}

xmlNode* visibleFrom(xmlNode* node)
{
    while (node && !isVisible(node))
        node = node->next;
    return node;
}

} // namespace

XMLNode::XMLNode(std::shared_ptr<XMLTree> tree, _xmlNode* node)
    : m_tree(std::move(tree))
    , m_node(node)
{
}

XMLNode::Kind XMLNode::kind() const
{
    switch (m_node->type) {
    case XML_ELEMENT_NODE:
        return Kind::Element;
    case XML_COMMENT_NODE:
        return Kind::Comment;
    case XML_PI_NODE:
        return Kind::ProcessingInstruction;
    default:
        return Kind::Text;
    }
}

std::optional<XMLElement> XMLNode::toElement() const
{
    if (!isElement())
        return std::nullopt;
    return XMLElement(m_tree, m_node);
}

QString XMLNode::name() const
{
    const Kind ownKind = kind();
    if (ownKind == Kind::Element)
        return QString::fromUtf8(qualifiedName(m_node->name, m_node->ns));
    return ownKind == Kind::ProcessingInstruction ? QString::fromUtf8(viewOf(m_node->name))
                                                  : QString();
}

qsizetype XMLNode::childCount() const
{
    qsizetype count = 0;
    for (auto child = firstChild(); child; child = child->nextSibling())
        ++count;
    return count;
}

std::vector<XMLNode> XMLNode::children() const
{
    std::vector<XMLNode> result;
    for (auto child = firstChild(); child; child = child->nextSibling())
        result.push_back(*child);
    return result;
}

std::optional<XMLNode> XMLNode::firstChild() const
{
    xmlNode* child = isElement() ? visibleFrom(m_node->children) : nullptr;
    if (!child)
        return std::nullopt;
    return XMLNode(m_tree, child);
}

std::optional<XMLNode> XMLNode::nextSibling() const
{
    xmlNode* sibling = visibleFrom(m_node->next);
    if (!sibling)
        return std::nullopt;
    return XMLNode(m_tree, sibling);
}

std::optional<XMLElement> XMLNode::parent() const
{
    if (!m_node->parent || m_node->parent->type != XML_ELEMENT_NODE)
        return std::nullopt;
    return XMLElement(m_tree, m_node->parent);
}

QString XMLNode::stringValue() const
{
    if (!isElement())
        return QString::fromUtf8(viewOf(m_node->content));
    QByteArray text;
    for (const xmlNode* node = m_node; node; node = nextInDocumentOrder(node, m_node)) {
        if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE)
            text.append(viewOf(node->content));
    }
    return QString::fromUtf8(text);
}

void XMLNode::detach()
{
    m_tree->detach(m_node);
}

QString XMLNode::xmlString() const
{
    return QString::fromUtf8(xmlData());
}

QByteArray XMLNode::xmlData() const
{
    return serializedNode(m_node);
}

} // namespace platform
