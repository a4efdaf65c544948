// SPDX-License-Identifier: MIT
#include "enex/EnexWriter.h"

#include "enex/EvernoteXMLErrors.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/xml/XMLParser.h"

#include <QIODevice>

using platform::XMLParser;

namespace {

constexpr qsizetype bufferLength = 64 * 1024;

constexpr char replacementCharacter[] = "\uFFFD";

// How many bytes the character takes that stands at the beginning of UTF-8 and that XML forbids; 0
// for any other.
qsizetype forbiddenLength(QByteArrayView utf8)
{
    const auto byte = static_cast<unsigned char>(utf8.front());
    if (byte < 0x20)
        return byte == '\t' || byte == '\n' || byte == '\r' ? 0 : 1;
    // U+FFFE and U+FFFF.
    return utf8.startsWith("\xEF\xBF\xBE") || utf8.startsWith("\xEF\xBF\xBF") ? 3 : 0;
}

} // namespace

EnexWriter::EnexWriter(QIODevice& output)
    : m_output(output)
{
    m_buffer.reserve(2 * bufferLength);
}

void EnexWriter::begin(XMLParser& parser)
{
    m_buffer +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE en-export SYSTEM \"http://xml.evernote.com/pub/evernote-export3.dtd\">\n";
    write(parser, bufferLength);
}

void EnexWriter::parserDidStartElement(XMLParser& parser, const QString& name,
                                       const platform::XMLAttributes& attributes)
{
    m_buffer += '<' + name.toUtf8();
    for (qsizetype index = 0; index < attributes.count(); ++index) {
        m_buffer += ' ' + attributes.name(index).toUtf8() + "=\"";
        appendEscaped(attributes.value(index).toUtf8(), Escaping::Attribute);
        m_buffer += '"';
    }
    m_buffer += '>';
    write(parser, bufferLength);
}

void EnexWriter::parserFoundCharacters(XMLParser& parser, QUtf8StringView text)
{
    appendEscaped({text.data(), text.size()}, Escaping::Text);
    write(parser, bufferLength);
}

void EnexWriter::parserFoundCData(XMLParser& parser, QByteArrayView utf8)
{
    m_buffer += "<![CDATA[";
    qsizetype partStart = 0;
    const auto appendPart = [&](qsizetype end) {
        m_buffer += utf8.sliced(partStart, end - partStart);
        partStart = end;
        write(parser, bufferLength);
    };
    for (qsizetype position = 0; position < utf8.size();) {
        const char byte = utf8[position];
        if (byte == '>' && position >= 2 && utf8[position - 1] == ']' &&
            utf8[position - 2] == ']') {
            // What would end the section is parted between two.
            appendPart(position);
            m_buffer += "]]><![CDATA[";
        } else if (position - partStart >= bufferLength) {
            appendPart(position);
        }
        const bool maybeForbidden = (byte >= 0 && byte < ' ') || byte == '\xEF';
        const qsizetype forbidden = maybeForbidden ? forbiddenLength(utf8.sliced(position)) : 0;
        if (forbidden > 0) {
            appendPart(position);
            m_buffer += replacementCharacter;
            partStart = position + forbidden;
        }
        position += std::max<qsizetype>(forbidden, 1);
    }
    appendPart(utf8.size());
    m_buffer += "]]>";
    write(parser, bufferLength);
}

void EnexWriter::parserDidEndElement(XMLParser& parser, const QString& name)
{
    m_buffer += "</" + name.toUtf8() + '>';
    // A line a note, as old exports have it.
    if (name == QLatin1String("note"))
        m_buffer += '\n';
    write(parser, bufferLength);
}

void EnexWriter::parserDidEndDocument(XMLParser& parser)
{
    m_buffer += '\n';
    write(parser, 0);
}

void EnexWriter::appendEscaped(QByteArrayView utf8, Escaping escaping)
{
    const bool isAttribute = escaping == Escaping::Attribute;
    qsizetype plainStart = 0;
    for (qsizetype position = 0; position < utf8.size();) {
        const char byte = utf8[position];
        // Most of a file is base64, which needs none of what follows.
        if (byte > '>') {
            ++position;
            continue;
        }
        QByteArrayView replacement;
        qsizetype length = 1;
        if (byte == '&')
            replacement = "&amp;";
        else if (byte == '<')
            replacement = "&lt;";
        else if (byte == '>')
            replacement = "&gt;";
        else if (byte == '\r')
            replacement = "&#13;";
        else if (isAttribute && byte == '"')
            replacement = "&quot;";
        else if (isAttribute && byte == '\n')
            replacement = "&#10;";
        else if (isAttribute && byte == '\t')
            replacement = "&#9;";
        else if (const qsizetype forbidden = forbiddenLength(utf8.sliced(position))) {
            replacement = replacementCharacter;
            length = forbidden;
        }
        if (!replacement.isEmpty()) {
            m_buffer += utf8.sliced(plainStart, position - plainStart);
            m_buffer += replacement;
            plainStart = position + length;
        }
        position += length;
    }
    m_buffer += utf8.sliced(plainStart);
}

// Empties the buffer once it holds enough.
void EnexWriter::write(XMLParser& parser, qsizetype atLeast)
{
    if (m_buffer.size() < atLeast || !m_error.isNull())
        return;
    if (m_output.write(m_buffer) != m_buffer.size()) {
        m_error = {evernoteXMLParseOperationErrorDomain,
                   EvernoteXMLParseOperationErrorCopyNotWritten,
                   platform::localizedString("The copy of the file could not be written: %1")
                       .arg(m_output.errorString())};
        parser.abortParsing();
    }
    m_buffer.resize(0);
}
