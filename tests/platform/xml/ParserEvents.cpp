// SPDX-License-Identifier: MIT
#include "ParserEvents.h"

namespace test {

using platform::InputStream;
using platform::XMLParser;

void ParserEvents::add(const QString& kind, const QString& text)
{
    if (!lines.isEmpty() && lines.last().startsWith(kind))
        lines.last() += text;
    else
        lines += kind + text;
}

void ParserEvents::parserDidStartElement(XMLParser&, const QString& name,
                                         const platform::XMLAttributes& attributes)
{
    QString line = QStringLiteral("start ") + name;
    for (qsizetype index = 0; index < attributes.count(); ++index)
        line += QStringLiteral(" %1=[%2]").arg(attributes.name(index), attributes.value(index));
    lines += line;
}

void ParserEvents::parserFoundCharacters(XMLParser&, QUtf8StringView text)
{
    pieces += text.toString();
    add(QStringLiteral("text "), text.toString());
}

void ParserEvents::parserFoundCData(XMLParser&, QByteArrayView utf8)
{
    add(QStringLiteral("cdata "), QString::fromUtf8(utf8));
}

void ParserEvents::parserDidEndElement(XMLParser&, const QString& name)
{
    lines += QStringLiteral("end ") + name;
}

void ParserEvents::parserParseErrorOccurred(XMLParser&, const platform::Error&)
{
    lines += QStringLiteral("error");
}

void ParserEvents::parserDidEndDocument(XMLParser&)
{
    lines += QStringLiteral("end of document");
}

QStringList lines(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

namespace {

Parsed parsedInChunks(const QByteArray& document, qsizetype chunkSize)
{
    const auto stream = InputStream::inputStreamWithData(document);
    XMLParser parser(*stream, chunkSize);
    ParserEvents events;
    parser.setDelegate(&events);
    Parsed result;
    result.succeeded = parser.parse();
    result.error = parser.parserError();
    result.lines = events.lines;
    result.pieces = events.pieces;
    return result;
}

} // namespace

Parsed parsed(const QByteArray& document)
{
    const Parsed result = parsedInChunks(document, XMLParser::defaultChunkSize);
    const Parsed byteByByte = parsedInChunks(document, 1);
    EXPECT_EQ(result.lines, byteByByte.lines);
    EXPECT_EQ(result.pieces, byteByByte.pieces);
    EXPECT_EQ(result.succeeded, byteByByte.succeeded);
    EXPECT_EQ(result.error, byteByByte.error);
    return result;
}

} // namespace test
