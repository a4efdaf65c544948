// SPDX-License-Identifier: MIT
#pragma once

#include <libxml/tree.h>

#include <vector>

namespace platform {

// Owns a tree of the XML library and the nodes that were taken out of it.
class XMLTree {
public:
    // Takes the document.
    explicit XMLTree(xmlDoc* document)
        : m_document(document)
    {
    }
    ~XMLTree();
    XMLTree(const XMLTree&) = delete;
    XMLTree& operator=(const XMLTree&) = delete;

    [[nodiscard]] xmlDoc* document() const { return m_document; }

    // Takes a node out of its place and keeps it; nothing when it has none.
    void detach(xmlNode* node);
    // Puts a node of this tree, wherever it is, to the end of the parent's children.
    void append(xmlNode* parent, xmlNode* node);

private:
    xmlDoc* m_document;
    std::vector<xmlNode*> m_detached;
};

// The node after this one in document order, none outside top. For walks without recursion: the
// depth is the input's choice.
[[nodiscard]] xmlNode* nextInDocumentOrder(const xmlNode* node, const xmlNode* top);
// The same without what is inside the node.
[[nodiscard]] xmlNode* nextOutside(const xmlNode* node, const xmlNode* top);

// Links a node that has no place as the last child, without joining texts, which would free one.
void linkAsLastChild(xmlNode* parent, xmlNode* node);

} // namespace platform
