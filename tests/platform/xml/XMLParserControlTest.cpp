// SPDX-License-Identifier: MIT
// How a delegate, or another thread, has its way with a parse.
#include "platform/xml/XMLParser.h"

#include "ParserEvents.h"

#include <libxml/HTMLparser.h>

#include <stdexcept>
#include <thread>

#include <unistd.h>

namespace {

using platform::Error;
using platform::InputStream;
using platform::XMLAttributes;
using platform::XMLParser;
using test::lines;
using test::parsed;
using test::ParserEvents;

// Stops everything at a given event.
class AbortingEvents : public ParserEvents {
public:
    explicit AbortingEvents(QString at)
        : m_at(std::move(at))
    {
    }
    void parserDidStartElement(XMLParser& parser, const QString& name,
                               const XMLAttributes& attributes) override
    {
        ParserEvents::parserDidStartElement(parser, name, attributes);
        abortAt(parser);
    }
    void parserFoundCharacters(XMLParser& parser, QUtf8StringView text) override
    {
        ParserEvents::parserFoundCharacters(parser, text);
        abortAt(parser);
    }
    void parserFoundCData(XMLParser& parser, QByteArrayView utf8) override
    {
        ParserEvents::parserFoundCData(parser, utf8);
        abortAt(parser);
    }
    void parserDidEndElement(XMLParser& parser, const QString& name) override
    {
        ParserEvents::parserDidEndElement(parser, name);
        abortAt(parser);
    }

private:
    void abortAt(XMLParser& parser)
    {
        if (lines.last() == m_at)
            parser.abortParsing();
    }
    QString m_at;
};

class XMLParserAbortTest : public ::testing::TestWithParam<const char*> {};

TEST_P(XMLParserAbortTest, IsFollowedByNoFurtherCall)
{
    for (const qsizetype chunkSize : {qsizetype(1), XMLParser::defaultChunkSize}) {
        const auto stream =
            InputStream::inputStreamWithData("<a><b>t</b><![CDATA[c]]><d/>&undeclared;</a>");
        XMLParser parser(*stream, chunkSize);
        AbortingEvents events(QString::fromUtf8(GetParam()));
        parser.setDelegate(&events);
        EXPECT_FALSE(parser.parse());
        EXPECT_EQ(events.lines.last(), QString::fromUtf8(GetParam()));
        EXPECT_EQ(parser.parserError().domain(), QStringLiteral("NSXMLParserErrorDomain"));
        EXPECT_EQ(parser.parserError().code(), 512);
    }
}

INSTANTIATE_TEST_SUITE_P(Events, XMLParserAbortTest,
                         ::testing::Values("start a", "start b", "text t", "end b", "cdata c",
                                           "start d", "end d"));

TEST(XMLParserControlTest, AnAbortAtTheDocumentsEndIsNoFailure)
{
    class Delegate : public ParserEvents {
        void parserDidEndDocument(XMLParser& parser) override { parser.abortParsing(); }
    } delegate;
    const auto stream = InputStream::inputStreamWithData("<a/>");
    XMLParser parser(*stream);
    parser.setDelegate(&delegate);
    EXPECT_TRUE(parser.parse());
    EXPECT_TRUE(parser.parserError().isNull());
}

TEST(XMLParserControlTest, AnAbortInTheReportOfAnErrorKeepsThatError)
{
    class Delegate : public ParserEvents {
        void parserParseErrorOccurred(XMLParser& parser, const Error&) override
        {
            parser.abortParsing();
        }
    } delegate;
    const auto stream = InputStream::inputStreamWithData("<a></b>");
    XMLParser parser(*stream);
    parser.setDelegate(&delegate);
    EXPECT_FALSE(parser.parse());
    EXPECT_EQ(parser.parserError().code(), 76);
}

TEST(XMLParserControlTest, AnAbortBeforeTheParseHolds)
{
    const auto stream = InputStream::inputStreamWithData("<a/>");
    XMLParser parser(*stream);
    ParserEvents events;
    parser.setDelegate(&events);
    parser.abortParsing();
    EXPECT_FALSE(parser.parse());
    EXPECT_EQ(parser.parserError().code(), 512);
    EXPECT_TRUE(events.lines.isEmpty());
}

// An element that never ends.
class EndlessStream : public InputStream {
public:
    explicit EndlessStream(const char* beginning)
        : m_beginning(beginning)
    {
    }
    bool open(Error*) override { return true; }
    qint64 read(char* buffer, qint64 maximumLength, Error*) override
    {
        for (qint64 index = 0; index < maximumLength; ++index)
            buffer[index] = *m_beginning ? *m_beginning++ : 'x';
        return maximumLength;
    }

private:
    const char* m_beginning;
};

class XMLParserEndlessTest : public ::testing::TestWithParam<const char*> {};

TEST_P(XMLParserEndlessTest, CanBeAbortedFromAnotherThread)
{
    EndlessStream stream(GetParam());
    XMLParser parser(stream);
    std::thread other([&parser] {
        usleep(20000);
        parser.abortParsing();
    });
    EXPECT_FALSE(parser.parse());
    other.join();
    EXPECT_EQ(parser.parserError().code(), 512);
}

INSTANTIATE_TEST_SUITE_P(Places, XMLParserEndlessTest, ::testing::Values("<a>", "<a><![CDATA["));

TEST(XMLParserControlTest, AnExceptionOfTheDelegateLeavesTheParse)
{
    class Delegate : public ParserEvents {
    public:
        void parserDidStartElement(XMLParser& parser, const QString& name,
                                   const XMLAttributes& attributes) override
        {
            ParserEvents::parserDidStartElement(parser, name, attributes);
            throw std::runtime_error("from the delegate");
        }
    } delegate;
    const auto stream = InputStream::inputStreamWithData("<a><b/></a>");
    XMLParser parser(*stream);
    parser.setDelegate(&delegate);
    EXPECT_THROW(static_cast<void>(parser.parse()), std::runtime_error);
    EXPECT_EQ(delegate.lines, lines({"start a"}));
}

TEST(XMLParserControlTest, AParseWithinADelegatesCallIsFine)
{
    class Delegate : public ParserEvents {
        void parserDidEndElement(XMLParser&, const QString& name) override
        {
            if (name == u"b")
                lines += parsed("<x>\x80</x>").lines;
        }
    } delegate;
    const auto stream = InputStream::inputStreamWithData("<a><b/><c/></a>");
    XMLParser parser(*stream);
    parser.setDelegate(&delegate);
    EXPECT_TRUE(parser.parse());
    EXPECT_EQ(delegate.lines,
              lines({"start a", "start b", "start x", "error", "start c", "end of document"}));
}

TEST(XMLParserControlTest, OthersUseOfTheLibraryInADelegatesCallIsNotTakenForAnError)
{
    class Delegate : public ParserEvents {
        void parserDidEndElement(XMLParser&, const QString&) override
        {
            const QByteArray page = "<p></b>&#0;<unknown";
            xmlDoc* document = htmlReadMemory(page.constData(), static_cast<int>(page.size()),
                                              nullptr, nullptr, HTML_PARSE_NOERROR);
            if (document)
                xmlFreeDoc(document);
        }
    } delegate;
    const auto stream = InputStream::inputStreamWithData("<a><b/></a>");
    XMLParser parser(*stream);
    parser.setDelegate(&delegate);
    EXPECT_TRUE(parser.parse());
}

} // namespace
