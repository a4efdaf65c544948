// SPDX-License-Identifier: MIT
#include "platform/xml/XMLSerializer.h"

#include "platform/xml/XMLTree.h"

namespace platform {

namespace {

enum class Place { Text, AttributeValue };

// White space in attributes other than blanks would be read back as blanks, a carriage return in
// text as a line feed.
const char* reference(char character, Place place)
{
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        return "&#13;";
    case '"':
        return place == Place::AttributeValue ? "&quot;" : nullptr;
    case '\n':
        return place == Place::AttributeValue ? "&#10;" : nullptr;
    case '\t':
        return place == Place::AttributeValue ? "&#9;" : nullptr;
    default:
        return nullptr;
    }
}

void appendEscaped(QByteArray& output, QByteArrayView text, Place place)
{
    qsizetype start = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const char* replacement = reference(text[index], place);
        if (!replacement)
            continue;
        output.append(text.sliced(start, index - start));
        output.append(replacement);
        start = index + 1;
    }
    output.append(text.sliced(start));
}

void appendAttribute(QByteArray& output, const QByteArray& name, QByteArrayView value)
{
    output.append(' ').append(name).append("=\"");
    appendEscaped(output, value, Place::AttributeValue);
    output.append('"');
}

void appendStartTag(QByteArray& output, const xmlNode* element)
{
    output.append('<').append(qualifiedName(element->name, element->ns));
    for (const xmlNs* space = element->nsDef; space; space = space->next) {
        const QByteArray name =
            space->prefix ? "xmlns:" + viewOf(space->prefix).toByteArray() : "xmlns";
        appendAttribute(output, name, viewOf(space->href));
    }
    for (const xmlAttr* attribute = element->properties; attribute; attribute = attribute->next) {
        appendAttribute(output, qualifiedName(attribute->name, attribute->ns),
                        attributeValue(attribute));
    }
    output.append('>');
}

void appendEndTag(QByteArray& output, const xmlNode* element)
{
    output.append("</").append(qualifiedName(element->name, element->ns)).append('>');
}

void appendStart(QByteArray& output, const xmlNode* node)
{
    switch (node->type) {
    case XML_ELEMENT_NODE:
        appendStartTag(output, node);
        break;
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
        appendEscaped(output, viewOf(node->content), Place::Text);
        break;
    case XML_COMMENT_NODE:
        // HTML allows two hyphens in a comment, XML does not.
        output.append("<!--").append(viewOf(node->content).toByteArray().replace("--", "- -"));
        output.append(output.endsWith('-') && !output.endsWith("<!--") ? " -->" : "-->");
        break;
    case XML_PI_NODE:
        output.append("<?").append(viewOf(node->name));
        if (node->content)
            output.append(' ').append(viewOf(node->content));
        output.append("?>");
        break;
    default:
        break;
    }
}

} // namespace

QByteArray qualifiedName(const xmlChar* name, const xmlNs* space)
{
    if (space && space->prefix)
        return viewOf(space->prefix).toByteArray() + ':' + viewOf(name).toByteArray();
    return viewOf(name).toByteArray();
}

QByteArray attributeValue(const xmlAttr* attribute)
{
    QByteArray value;
    for (const xmlNode* part = attribute->children; part; part = part->next)
        value.append(viewOf(part->content));
    return value;
}

QByteArray serializedNode(const xmlNode* top)
{
    QByteArray output;
    const xmlNode* node = top;
    while (node) {
        appendStart(output, node);
        if (node->type == XML_ELEMENT_NODE) {
            if (node->children) {
                node = node->children;
                continue;
            }
            appendEndTag(output, node);
        }
        while (node != top && !node->next) {
            node = node->parent;
            appendEndTag(output, node);
        }
        node = node == top ? nullptr : node->next;
    }
    return output;
}

} // namespace platform
