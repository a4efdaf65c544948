// SPDX-License-Identifier: MIT
#include "platform/xml/XMLParserRun.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/xml/XMLParserError.h"

#include <libxml/SAX2.h>
#include <libxml/parserInternals.h>

#include <cstring>

namespace platform {

namespace {

// What the library looks at to tell the encodings apart.
constexpr qsizetype signatureLength = 4;

// Bytes of text that are collected before a piece of it is delivered.
constexpr qsizetype longestPiece = 64 * 1024;

QString text(const xmlChar* utf8)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(utf8));
}

} // namespace

XMLParser::Run::Run(XMLParser& parser)
    : m_parser(parser)
    , m_chunk(
          static_cast<std::size_t>(std::max(parser.m_chunkSize, qsizetype(1)) + signatureLength))
{
}

bool XMLParser::Run::run(Error* error)
{
    Error streamError;
    if (m_parser.isAborted())
        stop();
    else if (!m_parser.m_stream.open(&streamError))
        fail(streamError);
    else if (readBeginning() && createContext())
        xmlParseDocument(m_context.get());

    if (m_exception)
        std::rethrow_exception(m_exception);
    if (m_parser.isAborted() && m_failure.isNull()) {
        *error = xmlParserError(XMLParserErrorCode::DelegateAborted,
                                localizedString("The parser was aborted."));
        return false;
    }
    *error = outcome();
    const bool isGood = error->isNull();
    if (m_parser.m_delegate) {
        if (isGood)
            m_parser.m_delegate->parserDidEndDocument(m_parser);
        else
            m_parser.m_delegate->parserParseErrorOccurred(m_parser, *error);
    }
    return isGood;
}

bool XMLParser::Run::readBeginning()
{
    while (m_chunkEnd < signatureLength && fillChunk()) {
    }
    if (!m_failure.isNull() || m_stopped)
        return false;
    if (m_chunkEnd == 0) {
        const QString name = m_parser.m_stream.name();
        fail(xmlParserError(XMLParserErrorCode::DocumentEmpty,
                            name.isEmpty() ? localizedString("The document is empty.")
                                           : localizedString("The file “%1” is empty.").arg(name)));
        return false;
    }
    m_form = documentFormOf({m_chunk.data(), m_chunkEnd});
    return true;
}

void XMLParser::Run::checkEncoding()
{
    const xmlParserInputBuffer* buffer = m_context->input ? m_context->input->buf : nullptr;
    const char* encoding = buffer && buffer->encoder ? buffer->encoder->name : "UTF-8";
    if (!showsMarkup(m_form, encoding)) {
        fail(xmlParserError(XMLParserErrorCode::UnsupportedEncoding,
                            localizedString("The encoding “%1” is not supported.")
                                .arg(QString::fromUtf8(encoding))));
    }
}

bool XMLParser::Run::createContext()
{
    xmlSAXHandler sax = handlers();
    m_context.reset(xmlCreateIOParserCtxt(
        &sax, this,
        [](void* self, char* buffer, int length) { return of(self).read(buffer, length); }, nullptr,
        this, XML_CHAR_ENCODING_NONE));
    if (!m_context) {
        fail(xmlParserError(XMLParserErrorCode::InternalError,
                            localizedString("Cannot create parser.")));
        return false;
    }
    xmlCtxtUseOptions(m_context.get(), XML_PARSE_NONET);
    // Else an ampersand in an attribute would arrive as a reference.
    m_context->replaceEntities = 1;
    return true;
}

// Adds to the chunk's bytes; false at the end.
bool XMLParser::Run::fillChunk()
{
    if (m_parser.isAborted())
        stop();
    if (m_atEnd || m_stopped)
        return false;
    if (m_chunkStart == m_chunkEnd)
        m_chunkStart = m_chunkEnd = 0;
    Error error;
    const qint64 length = m_parser.m_stream.read(
        m_chunk.data() + m_chunkEnd, static_cast<qint64>(m_chunk.size()) - signatureLength, &error);
    if (length < 0)
        fail(error);
    m_atEnd = length <= 0;
    m_chunkEnd += std::max<qint64>(length, 0);
    return !m_atEnd;
}

// The library takes a read that gives less than it asked for as the sign that markup is cut short,
// so the buffer is filled whatever the size of the chunks.
int XMLParser::Run::read(char* buffer, int length)
{
    qsizetype written = 0;
    while (written < length && !m_stopped) {
        if (m_chunkStart == m_chunkEnd && !fillChunk())
            break;
        const char* available = m_chunk.data() + m_chunkStart;
        const qsizetype count = m_chunkEnd - m_chunkStart;
        if (m_form != DocumentForm::Ascii) {
            const qsizetype taken = std::min<qsizetype>(count, length - written);
            std::memcpy(buffer + written, available, static_cast<std::size_t>(taken));
            m_guard.watchUtf16(available, taken,
                               m_form == DocumentForm::BigUtf16
                                   ? InputGuard::ByteOrder::BigEndian
                                   : InputGuard::ByteOrder::LittleEndian);
            m_chunkStart += taken;
            written += taken;
        } else {
            const InputGuard::Passed passed =
                m_guard.pass(available, count, buffer + written, length - written,
                             documentIsUtf8() ? InputGuard::LongCData::Split
                                              : InputGuard::LongCData::LeaveWhole);
            m_chunkStart += passed.read;
            written += passed.written;
        }
        if (m_guard.foundTooManyAttributes()) {
            fail(xmlParserError(XMLParserErrorCode::LimitExceeded,
                                textWithPlace(localizedString("A tag with more than %1 attributes")
                                                  .arg(InputGuard::maximumAttributes),
                                              line(), column())));
        }
    }
    return m_stopped ? 0 : static_cast<int>(written);
}

bool XMLParser::Run::documentIsUtf8() const
{
    return m_context && m_context->input && m_context->input->buf &&
           !m_context->input->buf->encoder;
}

void XMLParser::Run::stop()
{
    m_stopped = true;
    if (m_context)
        m_context->disableSAX = 1;
}

void XMLParser::Run::fail(const Error& error)
{
    if (!m_stopped)
        m_failure = error;
    stop();
}

Error XMLParser::Run::outcome() const
{
    if (!m_failure.isNull())
        return m_failure;
    if (!m_libraryErrors.first().isNull())
        return m_libraryErrors.first();
    if (m_context && m_context->wellFormed)
        return {};
    return xmlParserError(XMLParserErrorCode::InternalError,
                          localizedString("The document is not well-formed"));
}

qint64 XMLParser::Run::line() const
{
    return m_context && m_context->input ? m_context->input->line : 0;
}

qint64 XMLParser::Run::column() const
{
    return m_context && m_context->input ? m_context->input->col : 0;
}

template <typename Call>
void XMLParser::Run::deliver(const Call& call)
{
    if (m_parser.isAborted())
        stop();
    if (m_stopped || !m_parser.m_delegate)
        return;
    m_libraryErrors.setListening(false);
    try {
        call(*m_parser.m_delegate, m_parser);
    } catch (...) {
        m_exception = std::current_exception();
        stop();
    }
    m_libraryErrors.setListening(true);
    if (m_parser.isAborted())
        stop();
}

void XMLParser::Run::collectText(const char* utf8, qsizetype length)
{
    m_text.append(utf8, length);
    if (m_text.size() >= longestPiece)
        deliverText();
}

void XMLParser::Run::deliverText()
{
    if (m_text.isEmpty())
        return;
    deliver([this](XMLParserDelegate& delegate, XMLParser& parser) {
        delegate.parserFoundCharacters(parser, QUtf8StringView(m_text.constData(), m_text.size()));
    });
    // Keeps its memory for the next text.
    m_text.resize(0);
}

xmlSAXHandler XMLParser::Run::handlers()
{
    xmlSAXHandler sax = {};
    sax.initialized = XML_SAX2_MAGIC;
    // The library has chosen between its two kinds of element events by now. Wanted is the first:
    // names as written, namespaces not looked at.
    sax.startDocument = [](void* run) {
        of(run).m_context->sax2 = 0;
        of(run).checkEncoding();
    };
    sax.startElement = [](void* run, Text name, const xmlChar** attributes) {
        of(run).deliverText();
        of(run).deliver([&](XMLParserDelegate& delegate, XMLParser& parser) {
            delegate.parserDidStartElement(parser, text(name), XMLAttributes(attributes));
        });
    };
    sax.endElement = [](void* run, Text name) {
        of(run).deliverText();
        of(run).deliver([&](XMLParserDelegate& delegate, XMLParser& parser) {
            delegate.parserDidEndElement(parser, text(name));
        });
    };
    sax.characters = [](void* run, Text characters, int length) {
        of(run).collectText(reinterpret_cast<const char*>(characters), length);
    };
    sax.ignorableWhitespace = sax.characters;
    sax.cdataBlock = [](void* run, Text characters, int length) {
        of(run).deliverText();
        of(run).deliver([&](XMLParserDelegate& delegate, XMLParser& parser) {
            delegate.parserFoundCData(
                parser, {reinterpret_cast<const char*>(characters), qsizetype(length)});
        });
    };
    sax.getEntity = [](void* run, Text name) {
        return of(run).m_entities.entity(*of(run).m_context, name);
    };
    sax.getParameterEntity = [](void* run, Text name) {
        return of(run).m_entities.parameterEntity(name);
    };
    sax.entityDecl = [](void* run, Text name, int, Text, Text, xmlChar*) {
        of(run).m_entities.declare(name);
    };
    sax.internalSubset = [](void* run, Text, Text, Text) {
        EntityRules::subsetBegins(*of(run).m_context);
    };
    sax.externalSubset = [](void* run, Text, Text, Text) {
        EntityRules::subsetEnds(*of(run).m_context);
    };
    sax.serror = [](void* run, xmlError* error) {
        if (error->level >= XML_ERR_FATAL)
            of(run).fail(errorFromLibrary(*error));
    };
    return sax;
}

} // namespace platform
