// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlDocument.h"

#include "platform/htmlimport/MarkupRepair.h"
#include "platform/htmlimport/Utf8.h"

#include <libxml/HTMLparser.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <limits>

namespace platform::html {

namespace {

struct ContextDeleter {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};
using ContextPointer = std::unique_ptr<xmlParserCtxt, ContextDeleter>;

void ignoreError(void*, xmlError*) {}

// Entities that HTML knows by name, without any document type that declares them.
xmlEntityPtr htmlEntity(void* context, const xmlChar* name)
{
    if (xmlEntityPtr known = xmlSAX2GetEntity(context, name))
        return known;
    const htmlEntityDesc* entity = htmlEntityLookup(name);
    auto* parser = static_cast<xmlParserCtxt*>(context);
    if (!entity || !parser->myDoc)
        return nullptr;
    xmlChar text[8] = {};
    const int length = xmlCopyCharMultiByte(text, static_cast<int>(entity->value));
    text[length] = 0;
    static constexpr xmlChar subsetName[] = {'h', 't', 'm', 'l', 0};
    if (!parser->myDoc->intSubset &&
        !xmlCreateIntSubset(parser->myDoc, subsetName, nullptr, nullptr))
        return nullptr;
    return xmlAddDocEntity(parser->myDoc, name, XML_INTERNAL_GENERAL_ENTITY, nullptr, nullptr,
                           text);
}

void ignoreComment(void*, const xmlChar*) {}
void ignoreInstruction(void*, const xmlChar*, const xmlChar*) {}

DocumentPointer takeDocument(xmlParserCtxt& context)
{
    DocumentPointer document(context.myDoc);
    context.myDoc = nullptr;
    return document;
}

// A page that declares entities is not read as XML, which would have to expand them.
bool declaresEntities(std::string_view text)
{
    return text.find("<!ENTITY") != std::string_view::npos;
}

DocumentPointer parseAsXml(std::string_view text)
{
    if (text.find('<') == std::string_view::npos || declaresEntities(text))
        return nullptr;
    const ContextPointer context(
        xmlCreateMemoryParserCtxt(text.data(), static_cast<int>(text.size())));
    if (!context)
        return nullptr;
    xmlCtxtUseOptions(context.get(), XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR |
                                         XML_PARSE_NOWARNING | XML_PARSE_NOCDATA |
                                         XML_PARSE_COMPACT);
    xmlSwitchEncoding(context.get(), XML_CHAR_ENCODING_UTF8);
    // Without this a declaration of another encoding would be believed.
    context->options |= XML_PARSE_IGNORE_ENC;
    context->sax->serror = ignoreError;
    context->sax->getEntity = htmlEntity;
    context->sax->comment = ignoreComment;
    context->sax->processingInstruction = ignoreInstruction;
    xmlParseDocument(context.get());
    DocumentPointer document = takeDocument(*context);
    return context->wellFormed ? std::move(document) : nullptr;
}

// More open elements than the repair leaves in any page: this one gets them past it on purpose.
constexpr int mostOpenElements = 1500;

void startElementWithinReason(void* context, const xmlChar* name, const xmlChar** attributes)
{
    auto* parser = static_cast<xmlParserCtxt*>(context);
    if (parser->nameNr > mostOpenElements) {
        xmlStopParser(parser);
        return;
    }
    xmlSAX2StartElement(context, name, attributes);
}

// Null when the page nests too deep.
DocumentPointer parseAsHtml(std::string_view text)
{
    const ContextPointer context(
        htmlCreateMemoryParserCtxt(text.data(), static_cast<int>(text.size())));
    if (!context)
        return nullptr;
    htmlCtxtUseOptions(context.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR |
                                          HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                                          HTML_PARSE_IGNORE_ENC | HTML_PARSE_COMPACT);
    // Else what lies deeper than 256 elements would be cut off; the repair has seen to the depth.
    context->options |= XML_PARSE_HUGE;
    xmlSwitchEncoding(context.get(), XML_CHAR_ENCODING_UTF8);
    context->sax->serror = ignoreError;
    // The parser's idea of what white space matters is older than HTML 5; it is decided here later.
    context->sax->ignorableWhitespace = xmlSAX2Characters;
    context->sax->comment = ignoreComment;
    context->sax->startElement = startElementWithinReason;
    htmlParseDocument(context.get());
    DocumentPointer document = takeDocument(*context);
    return context->errNo == XML_ERR_USER_STOP ? nullptr : std::move(document);
}

} // namespace

DocumentPointer parsePage(QByteArrayView bytes)
{
    // Once, before two threads can do it at the same time.
    [[maybe_unused]] static const bool isReady = (xmlInitParser(), true);
    // The parser counts in int.
    const qsizetype most = std::numeric_limits<int>::max() / 4;
    const QByteArrayView given = bytes.first(std::min(bytes.size(), most));
    std::string cleaned;
    std::string_view text(given.data(), static_cast<std::size_t>(given.size()));
    if (!isCleanUtf8(given)) {
        cleaned = cleanedUtf8(given);
        text = cleaned;
    }
    if (DocumentPointer document = parseAsXml(text))
        return document;
    std::string repaired;
    for (const Nesting nesting : {Nesting::Capped, Nesting::Flat}) {
        repairMarkup(text, nesting, repaired);
        if (DocumentPointer document = parseAsHtml(repaired))
            return document;
    }
    return nullptr;
}

} // namespace platform::html
