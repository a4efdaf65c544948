// SPDX-License-Identifier: MIT
#include "platform/xml/HtmlRepair.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/xml/RepairSource.h"
#include "platform/xml/StrictReader.h"
#include "platform/xml/TagAttributes.h"
#include "platform/xml/XMLLibrary.h"
#include "platform/xml/XMLParserError.h"
#include "platform/xml/XMLSerializer.h"

#include <libxml/HTMLparser.h>
#include <libxml/SAX2.h>

#include <cctype>
#include <limits>

namespace platform {

namespace {

// Of one tag. More than a well-formed one may have, because a "<" in plain text makes attributes of
// the words behind it.
constexpr int maximumAttributes = 5000;

bool isNamed(const xmlNode* node, const char* name)
{
    return node->type == XML_ELEMENT_NODE &&
           xmlStrEqual(node->name, reinterpret_cast<const xmlChar*>(name));
}

bool isBlankText(const xmlNode* node)
{
    return (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) &&
           viewOf(node->content).trimmed().isEmpty();
}

bool isEmptyOfText(const xmlNode* top)
{
    for (const xmlNode* node = top; node; node = nextInDocumentOrder(node, top)) {
        if ((node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) &&
            !isBlankText(node))
            return false;
    }
    return true;
}

class HtmlRepair {
public:
    explicit HtmlRepair(QByteArrayView data)
        : m_source(data)
    {
    }

    std::shared_ptr<XMLTree> repair(Error* error);

private:
    static HtmlRepair& of(void* context)
    {
        return *static_cast<HtmlRepair*>(static_cast<htmlParserCtxt*>(context)->_private);
    }

    [[nodiscard]] xmlDoc* parse();
    void unwrap(xmlDoc* document);
    [[nodiscard]] bool beganWithPage() const;
    [[nodiscard]] bool firstWasAnnounced() const
    {
        return m_source.announcedRoot == m_source.firstElement;
    }

    static void startDocument(void* context);
    static void startElement(void* context, const xmlChar* name, const xmlChar** attributes);
    static void endElement(void* context, const xmlChar* name);

    RepairSource m_source;
    // The element of the source's first tag.
    xmlNode* m_first = nullptr;
    bool m_isTooDeep = false;
    XMLLibraryErrors m_libraryErrors;
};

// The end tag of that name, or the slash of an empty element, is what the parser has just read.
bool wasClosedBySource(const htmlParserCtxt* context, const xmlChar* name)
{
    QByteArrayView read(context->input->base, context->input->cur - context->input->base);
    if (read.endsWith("/>"))
        return true;
    read = read.first(std::max<qsizetype>(read.lastIndexOf('>'), 0)).trimmed();
    const QByteArrayView wanted = viewOf(name);
    const QByteArrayView tail = read.last(std::min(read.size(), wanted.size()));
    return tail.toByteArray().toLower() == wanted && read.chopped(tail.size()).endsWith("</");
}

// Moves an element's children to behind it.
void emptyElement(xmlNode* element)
{
    xmlNode* last = element;
    while (xmlNode* child = element->children) {
        xmlUnlinkNode(child);
        child->parent = element->parent;
        child->prev = last;
        child->next = last->next;
        if (last->next)
            last->next->prev = child;
        else
            element->parent->last = child;
        last->next = child;
        last = child;
    }
}

// Moves what stands behind an element into it.
void takeInFollowers(xmlNode* element)
{
    while (xmlNode* follower = element->next) {
        xmlUnlinkNode(follower);
        linkAsLastChild(element, follower);
    }
}

void HtmlRepair::startDocument(void* context)
{
    // Without it the library ends the document at 256 levels, in silence.
    static_cast<htmlParserCtxt*>(context)->options |= XML_PARSE_HUGE;
    xmlSAX2StartDocument(context);
}

void HtmlRepair::startElement(void* context, const xmlChar* name, const xmlChar** attributes)
{
    HtmlRepair& repair = of(context);
    auto* parser = static_cast<htmlParserCtxt*>(context);
    if (parser->nodeNr >= maximumTreeDepth) {
        repair.m_isTooDeep = true;
        parser->disableSAX = 1;
        return;
    }
    xmlSAX2StartElement(context, name, attributes);
    if (!repair.m_first && viewOf(name) == QByteArrayView(repair.m_source.firstElement))
        repair.m_first = parser->node;
}

void HtmlRepair::endElement(void* context, const xmlChar* name)
{
    auto* parser = static_cast<htmlParserCtxt*>(context);
    xmlNode* element = parser->node;
    const bool isUnknown = element && element != of(context).m_first && !htmlTagLookup(name);
    const bool swallowed = isUnknown && element->children && !wasClosedBySource(parser, name);
    xmlSAX2EndElement(context, name);
    if (swallowed && element->parent)
        emptyElement(element);
}

xmlDoc* HtmlRepair::parse()
{
    const XMLContext context(htmlNewParserCtxt());
    if (!context)
        return nullptr;
    context->_private = this;
    context->sax->startDocument = startDocument;
    context->sax->startElement = startElement;
    context->sax->endElement = endElement;
    // White space between elements that HTML does not know separates words all the same.
    context->sax->ignorableWhitespace = xmlSAX2Characters;
    return htmlCtxtReadMemory(context.get(), m_source.markup.constData(),
                              static_cast<int>(m_source.markup.size()), nullptr, "UTF-8",
                              HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                                  HTML_PARSE_NONET | HTML_PARSE_NODEFDTD);
}

bool HtmlRepair::beganWithPage() const
{
    return m_source.firstElement == "html" && !m_source.beginsWithText;
}

// Takes away what XML could not read again: instructions, which to HTML are whatever begins with
// "<?", and attributes with names that are none.
void dropWhatIsNoXml(xmlNode* top)
{
    for (xmlNode* node = top; node;) {
        xmlNode* next = nextInDocumentOrder(node, top);
        if (node->type == XML_PI_NODE) {
            xmlUnlinkNode(node);
            xmlFreeNode(node);
        } else if (node->type == XML_ELEMENT_NODE) {
            for (xmlAttr* attribute = node->properties; attribute;) {
                xmlAttr* following = attribute->next;
                if (xmlValidateName(attribute->name, 0) != 0)
                    xmlRemoveProp(attribute);
                attribute = following;
            }
        }
        node = next;
    }
}

// Takes away the html, head and body that the parser put around everything.
void HtmlRepair::unwrap(xmlDoc* document)
{
    xmlNode* page = xmlDocGetRootElement(document);
    if (beganWithPage() || !isNamed(page, "html"))
        return;
    xmlNode* wrapper =
        xmlNewDocNode(document, nullptr, reinterpret_cast<const xmlChar*>("div"), nullptr);
    qsizetype substantial = 0;
    const auto take = [&](xmlNode* node) {
        xmlUnlinkNode(node);
        linkAsLastChild(wrapper, node);
        substantial +=
            !isBlankText(node) && node->type != XML_COMMENT_NODE && node->type != XML_PI_NODE ? 1
                                                                                              : 0;
    };
    while (xmlNode* part = page->children) {
        const bool isImplied = isNamed(part, "head") || isNamed(part, "body");
        while (isImplied && part->children)
            take(part->children);
        if (isImplied) {
            xmlUnlinkNode(part);
            xmlFreeNode(part);
        } else {
            take(part);
        }
    }
    xmlNode* root = wrapper;
    if (m_first && m_first->parent == wrapper && (substantial == 1 || firstWasAnnounced())) {
        root = m_first;
        if (substantial > 1)
            takeInFollowers(root);
        xmlUnlinkNode(root);
    }
    xmlDocSetRootElement(document, root);
    xmlFreeNode(page);
    if (root != wrapper)
        xmlFreeNode(wrapper);
}

std::shared_ptr<XMLTree> HtmlRepair::repair(Error* error)
{
    const auto refuse = [error](XMLParserErrorCode code, const QString& text) {
        setError(error, xmlParserError(code, text));
        return nullptr;
    };
    if (m_source.firstElement.isEmpty() && !m_source.hasText)
        return refuse(XMLParserErrorCode::DocumentEmpty,
                      localizedString("The document has no content."));
    if (m_source.markup.size() > std::numeric_limits<int>::max() ||
        mayHaveMoreAttributes(m_source.markup, TagGrammar::Html, maximumAttributes))
        return refuse(XMLParserErrorCode::LimitExceeded,
                      localizedString("The document, or a tag in it, is too large."));
    xmlDoc* document = parse();
    if (!document)
        return refuse(XMLParserErrorCode::InternalError,
                      localizedString("The document could not be repaired."));
    auto tree = std::make_shared<XMLTree>(document);
    if (m_isTooDeep)
        return refuse(XMLParserErrorCode::LimitExceeded,
                      localizedString("Elements within more than %1 others").arg(maximumTreeDepth));
    if (!xmlDocGetRootElement(document))
        return refuse(XMLParserErrorCode::InternalError,
                      localizedString("The document could not be repaired."));
    dropWhatIsNoXml(xmlDocGetRootElement(document));
    unwrap(document);
    if (m_source.hasText && isEmptyOfText(xmlDocGetRootElement(document)))
        return refuse(XMLParserErrorCode::InternalError,
                      localizedString("The document could not be repaired."));
    return tree;
}

} // namespace

std::shared_ptr<XMLTree> repairedTree(QByteArrayView data, Error* error)
{
    return HtmlRepair(data).repair(error);
}

} // namespace platform
