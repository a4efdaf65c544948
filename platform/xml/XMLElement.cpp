// SPDX-License-Identifier: MIT
#include "platform/xml/StrictReader.h"
#include "platform/xml/XMLNode.h"
#include "platform/xml/XMLSerializer.h"
#include "platform/xml/XMLTree.h"

namespace platform {

namespace {

const xmlChar* libraryText(const QByteArray& utf8)
{
    return reinterpret_cast<const xmlChar*>(utf8.constData());
}

xmlAttr* attributeOf(const xmlNode* element, const QByteArray& name)
{
    for (xmlAttr* attribute = element->properties; attribute; attribute = attribute->next) {
        if (attribute->ns ? qualifiedName(attribute->name, attribute->ns) == name
                          : viewOf(attribute->name) == QByteArrayView(name))
            return attribute;
    }
    return nullptr;
}

} // namespace

XMLElement::XMLElement(std::shared_ptr<XMLTree> tree, _xmlNode* node)
    : XMLNode(std::move(tree), node)
{
    Q_ASSERT(node->type == XML_ELEMENT_NODE);
}

XMLElement XMLElement::create(const QString& name)
{
    auto tree = std::make_shared<XMLTree>(xmlNewDoc(nullptr));
    xmlNode* node = xmlNewDocNode(tree->document(), nullptr, libraryText(name.toUtf8()), nullptr);
    xmlDocSetRootElement(tree->document(), node);
    return {std::move(tree), node};
}

std::optional<XMLElement> XMLElement::fromXmlString(QStringView xml, Error* error)
{
    const QByteArray utf8 = xml.toUtf8();
    const std::shared_ptr<XMLTree> tree = readStrictly(
        utf8, {.encoding = "UTF-8", .undeclared = EntityRules::Undeclared::DropOrRefuse}, error);
    if (!tree)
        return std::nullopt;
    return XMLElement(tree, xmlDocGetRootElement(tree->document()));
}

std::optional<QString> XMLElement::attribute(QStringView name) const
{
    const xmlAttr* found = attributeOf(m_node, name.toUtf8());
    if (!found)
        return std::nullopt;
    return QString::fromUtf8(attributeValue(found));
}

void XMLElement::setAttribute(QStringView name, QStringView value)
{
    const QByteArray utf8Name = name.toUtf8();
    const QByteArray utf8Value = value.toUtf8();
    if (const xmlAttr* present = attributeOf(m_node, utf8Name))
        xmlSetNsProp(m_node, present->ns, present->name, libraryText(utf8Value));
    else
        xmlSetNsProp(m_node, nullptr, libraryText(utf8Name), libraryText(utf8Value));
}

std::optional<XMLNode> XMLElement::addChild(const XMLNode& child)
{
    // The tree and the node of another handle are its class's alone.
    const auto& other = static_cast<const XMLElement&>(child);
    xmlNode* node = other.m_node;
    if (other.m_tree != m_tree) {
        node = xmlDocCopyNode(node, m_tree->document(), 1);
        if (!node)
            return std::nullopt;
        linkAsLastChild(m_node, node);
        return XMLNode(m_tree, node);
    }
    for (const xmlNode* ancestor = m_node; ancestor; ancestor = ancestor->parent) {
        if (ancestor == node)
            return std::nullopt;
    }
    m_tree->append(m_node, node);
    return XMLNode(m_tree, node);
}

} // namespace platform
