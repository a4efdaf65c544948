// SPDX-License-Identifier: MIT
#include "platform/xml/XMLTree.h"

namespace platform {

XMLTree::~XMLTree()
{
    for (xmlNode* node : m_detached)
        xmlFreeNode(node);
    xmlFreeDoc(m_document);
}

void XMLTree::detach(xmlNode* node)
{
    if (!node->parent)
        return;
    xmlUnlinkNode(node);
    m_detached.push_back(node);
}

void XMLTree::append(xmlNode* parent, xmlNode* node)
{
    if (node->parent)
        xmlUnlinkNode(node);
    else
        std::erase(m_detached, node);
    linkAsLastChild(parent, node);
}

xmlNode* nextInDocumentOrder(const xmlNode* node, const xmlNode* top)
{
    const bool hasChildren = node->type == XML_ELEMENT_NODE || node->type == XML_DOCUMENT_NODE ||
                             node->type == XML_HTML_DOCUMENT_NODE;
    if (hasChildren && node->children)
        return node->children;
    return nextOutside(node, top);
}

xmlNode* nextOutside(const xmlNode* node, const xmlNode* top)
{
    while (node && node != top) {
        if (node->next)
            return node->next;
        node = node->parent;
    }
    return nullptr;
}

void linkAsLastChild(xmlNode* parent, xmlNode* node)
{
    node->parent = parent;
    node->next = nullptr;
    node->prev = parent->last;
    if (parent->last)
        parent->last->next = node;
    else
        parent->children = node;
    parent->last = node;
}

} // namespace platform
