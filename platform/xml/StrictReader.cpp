// SPDX-License-Identifier: MIT
#include "platform/xml/StrictReader.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/xml/DocumentForm.h"
#include "platform/xml/InputGuard.h"
#include "platform/xml/TagAttributes.h"
#include "platform/xml/XMLLibrary.h"
#include "platform/xml/XMLParserError.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <libxml/SAX2.h>

#include <limits>

namespace platform {

namespace {

// Of one tag; as many as a file may have.
constexpr int maximumAttributes = int(InputGuard::maximumAttributes);

// Were all of it one tag, its attributes would keep nobody busy for long.
constexpr qsizetype harmlessSize = 16 * 1024;

Error tooLarge()
{
    return xmlParserError(XMLParserErrorCode::LimitExceeded,
                          localizedString("The document, or a tag in it, is too large."));
}

// The encodings that the declaration names; a malformed one may name several.
QByteArrayList declaredEncodings(QByteArrayView data)
{
    constexpr qsizetype longestDeclaration = 1024;
    static const QRegularExpression encoding(QStringLiteral("encoding\\s*=\\s*[\"']([^\"']+)"));
    const QByteArrayView start = data.first(std::min(data.size(), longestDeclaration));
    if (!start.startsWith("<?xml"))
        return {};
    QByteArrayList names;
    const qsizetype end = start.indexOf("?>");
    auto matches = encoding.globalMatch(QString::fromLatin1(end < 0 ? start : start.first(end)));
    while (matches.hasNext())
        names += matches.next().captured(1).toLatin1();
    return names;
}

// The encoding that hides a document's markup; none where it can be seen. One that calls for UTF-16
// in ASCII is a leftover, and not believed by the library either.
std::optional<QByteArray> hidingEncoding(DocumentForm form, QByteArrayView data)
{
    if (form == DocumentForm::Other)
        return "EBCDIC";
    for (const QByteArray& name : declaredEncodings(data)) {
        if (form == DocumentForm::Ascii && !showsMarkup(form, name) &&
            !showsMarkup(DocumentForm::BigUtf16, name))
            return name;
    }
    return std::nullopt;
}

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
    // Why the library must not be given the document; null when it may. What it takes for a
    // document's tags must be known before, for it compares each attribute of a tag with every
    // other, beyond its errors, too.
    [[nodiscard]] Error obstacle() const;
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

Error StrictReader::obstacle() const
{
    if (m_data.size() > std::numeric_limits<int>::max())
        return tooLarge();
    if (m_data.size() < harmlessSize)
        return {};
    QByteArray utf8;
    QByteArrayView markup = m_data;
    if (!m_reading.encoding) {
        const DocumentForm form = documentFormOf(m_data);
        if (const auto encoding = hidingEncoding(form, m_data)) {
            return xmlParserError(XMLParserErrorCode::UnsupportedEncoding,
                                  localizedString("The encoding “%1” is not supported.")
                                      .arg(QString::fromLatin1(*encoding)));
        }
        if (form != DocumentForm::Ascii) {
            const auto encoding = form == DocumentForm::BigUtf16 ? QStringConverter::Utf16BE
                                                                 : QStringConverter::Utf16LE;
            utf8 = QString(QStringDecoder(encoding).decode(m_data)).toUtf8();
            markup = utf8;
        }
    }
    return mayHaveMoreAttributes(markup, TagGrammar::Xml, maximumAttributes) ? tooLarge() : Error();
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
    if (const Error reason = obstacle(); !reason.isNull()) {
        setError(error, reason);
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
