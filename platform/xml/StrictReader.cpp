// SPDX-License-Identifier: MIT
#include "platform/xml/StrictReader.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/xml/InputGuard.h"
#include "platform/xml/XMLLibrary.h"
#include "platform/xml/XMLParserError.h"

#include <libxml/SAX2.h>

#include <array>
#include <limits>

namespace platform {

namespace {

// Below this size the attributes of one tag cannot keep the library busy for long.
constexpr qsizetype guardedSize = 64 * 1024;

class StrictReader {
public:
    StrictReader(QByteArrayView data, const StrictReading& reading)
        : m_data(data)
        , m_reading(reading)
        , m_entities(EntityRules::HtmlNames::Known, reading.undeclared)
    {
    }

    std::shared_ptr<XMLTree> read(Error* error);

private:
    static StrictReader& of(void* context)
    {
        return *static_cast<StrictReader*>(static_cast<xmlParserCtxt*>(context)->_private);
    }

    void skipToDeclaration();
    [[nodiscard]] bool hasTooManyAttributes() const;
    void installHandlers();
    void fail(XMLParserErrorCode code, const QString& text);

    static void startElement(void* context, const xmlChar* name, const xmlChar* prefix,
                             const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                             int attributeCount, int defaultedCount, const xmlChar** attributes);

    QByteArrayView m_data;
    StrictReading m_reading;
    EntityRules m_entities;
    qint64 m_skippedLines = 0;
    XMLLibraryErrors m_libraryErrors;
    Error m_failure;
    XMLContext m_context;
};

// Exports put white space, or a second byte order mark, before the declaration, where XML has none.
void StrictReader::skipToDeclaration()
{
    qsizetype start = 0;
    qint64 lines = 0;
    while (start < m_data.size()) {
        if (m_data.sliced(start).startsWith("\xEF\xBB\xBF")) {
            start += 3;
            continue;
        }
        const char character = m_data[start];
        if (character != ' ' && character != '\t' && character != '\r' && character != '\n')
            break;
        lines += character == '\n' ? 1 : 0;
        ++start;
    }
    m_data = m_data.sliced(start);
    m_skippedLines = lines;
}

bool StrictReader::hasTooManyAttributes() const
{
    if (m_data.size() < guardedSize)
        return false;
    InputGuard guard;
    std::array<char, 16 * 1024> copy;
    QByteArrayView rest = m_data;
    while (!rest.isEmpty() && !guard.foundTooManyAttributes()) {
        const InputGuard::Passed passed = guard.pass(
            rest.data(), rest.size(), copy.data(), copy.size(), InputGuard::LongCData::LeaveWhole);
        rest = rest.sliced(passed.read);
    }
    return guard.foundTooManyAttributes();
}

void StrictReader::installHandlers()
{
    m_context->_private = this;
    xmlSAXHandler& sax = *m_context->sax;
    sax.startElementNs = startElement;
    sax.getEntity = [](void* context, const xmlChar* name) {
        return of(context).m_entities.entity(*static_cast<xmlParserCtxt*>(context), name);
    };
    sax.getParameterEntity = [](void* context, const xmlChar* name) {
        return of(context).m_entities.parameterEntity(name);
    };
    sax.entityDecl = [](void* context, const xmlChar* name, int, const xmlChar*, const xmlChar*,
                        xmlChar*) {
        of(context).m_entities.declare(name);
    };
    sax.internalSubset = [](void* context, const xmlChar* name, const xmlChar* id,
                            const xmlChar* file) {
        // Makes the place where comments in the subset go, which would have no owner otherwise.
        xmlSAX2InternalSubset(context, name, id, file);
        EntityRules::subsetBegins(*static_cast<xmlParserCtxt*>(context));
    };
    sax.externalSubset = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
        EntityRules::subsetEnds(*static_cast<xmlParserCtxt*>(context));
    };
    // What else a DTD holds is of no use here, and some of it would be kept in the tree.
    sax.attributeDecl = nullptr;
    sax.elementDecl = nullptr;
    sax.notationDecl = nullptr;
    sax.unparsedEntityDecl = nullptr;
    sax.resolveEntity = nullptr;
    sax.serror = [](void* context, xmlError* error) {
        StrictReader& reader = of(context);
        if (error->level >= XML_ERR_FATAL && reader.m_failure.isNull())
            reader.m_failure = errorFromLibrary(*error, reader.m_skippedLines);
    };
}

void StrictReader::fail(XMLParserErrorCode code, const QString& text)
{
    if (m_failure.isNull())
        m_failure = xmlParserError(code, text);
}

void StrictReader::startElement(void* context, const xmlChar* name, const xmlChar* prefix,
                                const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                                int attributeCount, int defaultedCount, const xmlChar** attributes)
{
    auto* parser = static_cast<xmlParserCtxt*>(context);
    if (parser->nodeNr >= maximumTreeDepth) {
        StrictReader& reader = of(context);
        const QString text =
            localizedString("Elements within more than %1 others").arg(maximumTreeDepth);
        reader.fail(
            XMLParserErrorCode::LimitExceeded,
            textWithPlace(text, parser->input->line + reader.m_skippedLines, parser->input->col));
        // The library reads on in silence: stopping it here would free what its callers still look
        // into.
        parser->disableSAX = 1;
        return;
    }
    xmlSAX2StartElementNs(context, name, prefix, uri, namespaceCount, namespaces, attributeCount,
                          defaultedCount, attributes);
}

std::shared_ptr<XMLTree> StrictReader::read(Error* error)
{
    skipToDeclaration();
    if (m_data.isEmpty()) {
        setError(error, xmlParserError(XMLParserErrorCode::DocumentEmpty,
                                       localizedString("The document is empty.")));
        return nullptr;
    }
    if (m_data.size() > std::numeric_limits<int>::max() || hasTooManyAttributes()) {
        setError(error,
                 xmlParserError(XMLParserErrorCode::LimitExceeded,
                                localizedString("The document, or a tag in it, is too large.")));
        return nullptr;
    }
    m_context.reset(xmlNewParserCtxt());
    if (!m_context) {
        setError(error, xmlParserError(XMLParserErrorCode::InternalError,
                                       localizedString("Cannot create parser.")));
        return nullptr;
    }
    installHandlers();
    // Huge, because the document is in memory as it is; the depth has a limit of its own.
    constexpr int options =
        XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOCDATA | XML_PARSE_COMPACT | XML_PARSE_HUGE;
    xmlDoc* document =
        xmlCtxtReadMemory(m_context.get(), m_data.data(), static_cast<int>(m_data.size()), nullptr,
                          m_reading.encoding, options);
    if (document && m_failure.isNull() && xmlDocGetRootElement(document))
        return std::make_shared<XMLTree>(document);
    if (document)
        xmlFreeDoc(document);
    if (m_failure.isNull())
        m_failure = m_libraryErrors.first();
    fail(XMLParserErrorCode::InternalError, localizedString("The document is not well-formed"));
    setError(error, m_failure);
    return nullptr;
}

} // namespace

std::shared_ptr<XMLTree> readStrictly(QByteArrayView data, const StrictReading& reading,
                                      Error* error)
{
    return StrictReader(data, reading).read(error);
}

} // namespace platform
