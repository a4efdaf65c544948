// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <memory>
#include <optional>
#include <vector>

struct _xmlNode;

namespace platform {

class XMLElement;
class XMLTree;

// A node of a tree: a cheap handle that keeps the tree alive. Copies name the same node. The
// handles of one tree belong to one thread at a time.
class XMLNode {
public:
    // The text of CDATA sections is text.
    enum class Kind { Element, Text, Comment, ProcessingInstruction };

    XMLNode(std::shared_ptr<XMLTree> tree, _xmlNode* node);

    [[nodiscard]] Kind kind() const;
    [[nodiscard]] bool isElement() const { return kind() == Kind::Element; }
    // The same node as an element; none when it is none.
    [[nodiscard]] std::optional<XMLElement> toElement() const;

    // An element's name with its prefix, a processing instruction's target; else empty.
    [[nodiscard]] QString name() const;

    [[nodiscard]] qsizetype childCount() const;
    [[nodiscard]] std::vector<XMLNode> children() const;
    [[nodiscard]] std::optional<XMLNode> firstChild() const;
    [[nodiscard]] std::optional<XMLNode> nextSibling() const;
    [[nodiscard]] std::optional<XMLElement> parent() const;

    // All text within, joined; a comment's or processing instruction's own text.
    [[nodiscard]] QString stringValue() const;

    // Takes the node out of its parent or document; it lives on as long as its tree.
    void detach();

    // The markup as it stands: no declaration, no reformatting, empty elements as a start and an
    // end tag, attributes in double quotes in document order.
    [[nodiscard]] QString xmlString() const;
    // The same as UTF-8.
    [[nodiscard]] QByteArray xmlData() const;

    friend bool operator==(const XMLNode& left, const XMLNode& right)
    {
        return left.m_node == right.m_node;
    }

protected:
    std::shared_ptr<XMLTree> m_tree;
    _xmlNode* m_node;
};

class XMLElement : public XMLNode {
public:
    // node must be an element.
    XMLElement(std::shared_ptr<XMLTree> tree, _xmlNode* node);

    // A new element without attributes and children, in a tree of its own.
    [[nodiscard]] static XMLElement create(const QString& name);

    // Reads one element, strictly; the names of HTML's entities are known.
    [[nodiscard]] static std::optional<XMLElement> fromXmlString(QStringView xml,
                                                                 Error* error = nullptr);

    // The attribute with that qualified name, compared exactly.
    [[nodiscard]] std::optional<QString> attribute(QStringView name) const;
    // Replaces the value in place, or adds the attribute as the last one.
    void setAttribute(QStringView name, QStringView value);

    // Moves a node to the end of the children, or, when it is part of another tree, a copy of it.
    // Returns the child in its new place; none, and nothing is done, when the element lies within
    // it.
    std::optional<XMLNode> addChild(const XMLNode& child);
};

} // namespace platform
