// SPDX-License-Identifier: MIT
#include "platform/xml/XMLParser.h"

#include "ParserEvents.h"
#include "platform/xml/XMLParserError.h"
#include "support/ScratchFolder.h"

#include <QStringEncoder>

#include <unistd.h>

namespace {

using platform::Error;
using platform::InputStream;
using platform::XMLAttributes;
using platform::XMLParser;
using platform::XMLParserErrorCode;
using test::lines;
using test::parsed;
using test::Parsed;
using test::ParserEvents;

int codeOf(XMLParserErrorCode code)
{
    return static_cast<int>(code);
}

TEST(XMLParserTest, DeliversElementsTextAndCDataInOrder)
{
    const Parsed result =
        parsed("<?xml version=\"1.0\"?><a x=\"1\" y='two'>t<b/><![CDATA[<c>&]]></a>");
    EXPECT_TRUE(result.succeeded);
    EXPECT_EQ(result.lines, lines({"start a x=[1] y=[two]", "text t", "start b", "end b",
                                   "cdata <c>&", "end a", "end of document"}));
}

TEST(XMLParserTest, DeliversWhiteSpaceAsText)
{
    EXPECT_EQ(parsed("<a>\n <b/>\r\n</a>").lines, lines({"start a", "text \n ", "start b", "end b",
                                                         "text \n", "end a", "end of document"}));
}

TEST(XMLParserTest, DoesNotLookAtNamespaces)
{
    EXPECT_EQ(parsed("<o:a xmlns=\"u\" xmlns:p='v' p:x='1'><p:b/></o:a>").lines,
              lines({"start o:a xmlns=[u] xmlns:p=[v] p:x=[1]", "start p:b", "end p:b", "end o:a",
                     "end of document"}));
}

TEST(XMLParserTest, ResolvesReferencesInTextAndAttributes)
{
    EXPECT_EQ(parsed("<a x=\"&lt;&amp;&#38;&quot;&#xE9;&#10;\">a&amp;b&#x20AC;&gt;</a>").lines,
              lines({"start a x=[<&&\"é\n]", "text a&b€>", "end a", "end of document"}));
}

TEST(XMLParserTest, ATextComesWholeWhateverItsReferencesAndLetters)
{
    EXPECT_EQ(parsed("<a>one&amp;tw\xC3\xB6&#33;</a>").pieces, QStringList(QString::fromUtf8("one&tw\xC3\xB6!")));
    EXPECT_EQ(parsed("<a>one<b/>two</a>").pieces, lines({"one", "two"}));
}

TEST(XMLParserTest, ALongTextComesInPiecesThatNeverPartACharacter)
{
    const QStringList pieces = parsed("<a>" + QByteArray("\xE6\x97\xA5").repeated(100000) + "</a>").pieces;
    EXPECT_GT(pieces.size(), 1);
    EXPECT_EQ(pieces.join(QString()), QString(100000, QChar(0x65E5)));
}

TEST(XMLParserTest, AttributesAreFoundByTheirExactName)
{
    class Delegate : public ParserEvents {
    public:
        void parserDidStartElement(XMLParser&, const QString&,
                                   const XMLAttributes& attributes) override
        {
            encoding = attributes.value("encoding");
            otherCase = attributes.value("Encoding");
            empty = attributes.value("empty");
        }
        std::optional<QString> encoding, otherCase, empty;
    } delegate;
    const auto stream = InputStream::inputStreamWithData("<data encoding='base64' empty=''/>");
    XMLParser parser(*stream);
    parser.setDelegate(&delegate);
    ASSERT_TRUE(parser.parse());
    EXPECT_EQ(delegate.encoding, QStringLiteral("base64"));
    EXPECT_EQ(delegate.otherCase, std::nullopt);
    EXPECT_EQ(delegate.empty, QString());
}

TEST(XMLParserTest, KeepsTheOrderOfNeighbouringCDataAndText)
{
    EXPECT_EQ(
        parsed("<a>x<![CDATA[]]>y<![CDATA[]]]]><![CDATA[>z]]></a>").lines,
        lines({"start a", "text x", "cdata ", "text y", "cdata ]]>z", "end a", "end of document"}));
}

TEST(XMLParserTest, DoesNotReadTheExternalDtd)
{
    const QByteArray head =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE en-export SYSTEM \"http://xml.evernote.com/pub/evernote-export3.dtd\">\n";
    EXPECT_EQ(
        parsed(head + "<en-export><note/></en-export>").lines,
        lines({"start en-export", "start note", "end note", "end en-export", "end of document"}));
}

TEST(XMLParserTest, UndeclaredEntitiesAreDroppedWhereAnExternalDtdMightDeclareThem)
{
    EXPECT_EQ(parsed("<!DOCTYPE a SYSTEM 'x.dtd'><a y='1&nbsp;2'>b&nbsp;c</a>").lines,
              lines({"start a y=[12]", "text bc", "end a", "end of document"}));
    // However many.
    const Parsed many =
        parsed("<!DOCTYPE a SYSTEM 'x.dtd'><a>" + QByteArray("&nbsp;x").repeated(50000) + "</a>");
    EXPECT_TRUE(many.succeeded);
    EXPECT_EQ(many.pieces.join(QString()), QString(50000, u'x'));
}

TEST(XMLParserTest, UndeclaredEntitiesAreAnErrorElsewhere)
{
    const Parsed result = parsed("<a>\nb&nbsp;c</a>");
    EXPECT_FALSE(result.succeeded);
    EXPECT_EQ(result.error.domain(), platform::xmlParserErrorDomain);
    EXPECT_EQ(result.error.code(), 26);
    EXPECT_EQ(result.error.localizedDescription(),
              QStringLiteral("Entity 'nbsp' not defined at line 2, column 8"));
    EXPECT_EQ(result.lines.last(), QStringLiteral("error"));
    EXPECT_FALSE(parsed("<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;&nbsp;</a>").succeeded);
}

TEST(XMLParserTest, EntitiesOfTheDocumentAreDropped)
{
    EXPECT_EQ(
        parsed("<!DOCTYPE a [<!ENTITY e 'text'><!ENTITY t '<b/>'>]><a x='1&e;2&t;'>3&e;4&t;5</a>")
            .lines,
        lines({"start a x=[12]", "text 345", "end a", "end of document"}));
}

TEST(XMLParserTest, PredefinedEntitiesCannotBeRedeclared)
{
    EXPECT_EQ(parsed("<!DOCTYPE a [<!ENTITY lt 'x'>]><a>&lt;</a>").lines.value(1),
              QStringLiteral("text <"));
}

TEST(XMLParserTest, ParameterEntitiesAreIgnored)
{
    EXPECT_EQ(
        parsed("<!DOCTYPE a [<!ENTITY % p '<!ENTITY e \"x\">'>%p;%undeclared;]><a>1&e;2</a>").lines,
        lines({"start a", "text 12", "end a", "end of document"}));
}

TEST(XMLParserTest, ErrorsNameLineAndColumn)
{
    const Parsed result = parsed("<a>\n  <b>\n  </c>\n</a>");
    EXPECT_FALSE(result.succeeded);
    EXPECT_EQ(result.error.code(), 76);
    EXPECT_EQ(result.error.localizedDescription(),
              QStringLiteral("Opening and ending tag mismatch: b and c at line 3, column 7"));
    EXPECT_EQ(result.lines.filter(QStringLiteral("error")).size(), 1);
    EXPECT_FALSE(result.lines.contains(QStringLiteral("end of document")));
}

TEST(XMLParserTest, EventsBeforeTheErrorHaveBeenDelivered)
{
    const Parsed result = parsed("<a><b>t</b><c></a>");
    EXPECT_EQ(result.lines, lines({"start a", "start b", "text t", "end b", "start c", "error"}));
}

class XMLParserMalformedTest : public ::testing::TestWithParam<const char*> {};

TEST_P(XMLParserMalformedTest, IsAnError)
{
    const Parsed result = parsed(GetParam());
    EXPECT_FALSE(result.succeeded);
    EXPECT_EQ(result.error.domain(), platform::xmlParserErrorDomain);
    EXPECT_FALSE(result.error.localizedDescription().isEmpty());
    EXPECT_EQ(result.lines.last(), QStringLiteral("error"));
}

INSTANTIATE_TEST_SUITE_P(Documents, XMLParserMalformedTest,
                         ::testing::Values(" <?xml version='1.0'?><a/>", "<a/>text", "<a/><b/>",
                                           "<a>", "<a", "<a><![CDATA[x</a>", "<a>&", "<a>& b</a>",
                                           "<a x=1/>", "<a x='1' x='2'/>", "text", "   ",
                                           "<?xml version='1.0'?>", "<a>\x01</a>",
                                           "<a>\xFF\xFE</a>", "<a>\xC3</a>", "<a>]]></a>",
                                           "<a><!-- -- --></a>", "<a x='<'/>",
                                           "<?xml version='1.0' encoding='no-such'?><a>\xE9</a>",
                                           "<a><![CDATA[x]]></a", "<!DOCTYPE a [", "<", "<!"));

TEST(XMLParserTest, NulBytesAreAnError)
{
    EXPECT_FALSE(parsed(QByteArray("<a>x\0y</a>", 10)).succeeded);
    EXPECT_FALSE(parsed(QByteArray("\0\0\0\0", 4)).succeeded);
}

TEST(XMLParserTest, ReadsTheEncodingsThatTheDocumentSays)
{
    const QStringList expected =
        lines({"start a x=[ü]", "text é€", "cdata ß", "end a", "end of document"});
    const QString document = QStringLiteral("<a x='ü'>é€<![CDATA[ß]]></a>");
    EXPECT_EQ(parsed(document.toUtf8()).lines, expected);
    EXPECT_EQ(parsed("\xEF\xBB\xBF" + document.toUtf8()).lines, expected);
    QStringEncoder little(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    QStringEncoder big(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
    EXPECT_EQ(parsed(little.encode(document)).lines, expected);
    EXPECT_EQ(
        parsed(big.encode(QStringLiteral("<?xml version='1.0' encoding='UTF-16'?>") + document))
            .lines,
        expected);
    EXPECT_EQ(
        parsed("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9<![CDATA[\xDF]]></a>").lines,
        lines({"start a", "text é", "cdata ß", "end a", "end of document"}));
    EXPECT_EQ(parsed("<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>").lines.value(1),
              QStringLiteral("text €"));
}

TEST(XMLParserTest, DoesNotTakeUtf8ForUtf16)
{
    const Parsed result = parsed("<?xml version='1.0' encoding='UTF-16'?><a/>");
    EXPECT_FALSE(result.succeeded);
}

TEST(XMLParserTest, KnowsWhereItStands)
{
    class Delegate : public ParserEvents {
    public:
        void parserDidStartElement(XMLParser& parser, const QString& name,
                                   const XMLAttributes&) override
        {
            positions += QStringLiteral("%1 %2:%3")
                             .arg(name)
                             .arg(parser.lineNumber())
                             .arg(parser.columnNumber());
        }
        QStringList positions;
    } delegate;
    const auto stream = InputStream::inputStreamWithData("<a>\n\n<b/>\n <c/></a>");
    XMLParser parser(*stream);
    EXPECT_EQ(parser.lineNumber(), 0);
    parser.setDelegate(&delegate);
    ASSERT_TRUE(parser.parse());
    EXPECT_EQ(delegate.positions, lines({"a 1:3", "b 3:3", "c 4:4"}));
    EXPECT_EQ(parser.lineNumber(), 0);
}

TEST(XMLParserTest, ParsesWithoutADelegate)
{
    const auto stream = InputStream::inputStreamWithData("<a>b</a>");
    EXPECT_TRUE(XMLParser(*stream).parse());
}

Parsed parsedFile(const QString& path)
{
    const auto stream = InputStream::inputStreamWithURL(QUrl::fromLocalFile(path));
    XMLParser parser(*stream);
    ParserEvents events;
    parser.setDelegate(&events);
    Parsed result;
    result.succeeded = parser.parse();
    result.error = parser.parserError();
    result.lines = events.lines;
    return result;
}

TEST(XMLParserTest, ReadsAFile)
{
    const test::ScratchFolder folder;
    const Parsed result = parsedFile(folder.write(QStringLiteral("ä b.xml"), "<a/>"));
    EXPECT_TRUE(result.succeeded);
    EXPECT_EQ(result.lines, lines({"start a", "end a", "end of document"}));
}

TEST(XMLParserTest, WhatCannotBeReadIsNamed)
{
    const test::ScratchFolder folder;
    const QString empty = folder.write(QStringLiteral("empty.xml"), {});
    EXPECT_EQ(parsedFile(empty).error.localizedDescription(),
              QStringLiteral("The file “%1” is empty.").arg(empty));
    EXPECT_EQ(parsedFile(empty).error.code(), codeOf(XMLParserErrorCode::DocumentEmpty));
    EXPECT_EQ(parsedFile(empty).lines, lines({"error"}));
    EXPECT_EQ(
        parsedFile(folder.path()).error.localizedDescription(),
        QStringLiteral("The file “%1” could not be opened: Is a directory.").arg(folder.path()));
    const QString missing = folder.filePath("missing.xml");
    EXPECT_EQ(parsedFile(missing).error.localizedDescription(),
              QStringLiteral("The file “%1” could not be opened: No such file or directory.")
                  .arg(missing));
    EXPECT_EQ(parsedFile(missing).error.domain(), platform::xmlParserErrorDomain);
    EXPECT_EQ(parsedFile(missing).error.code(), codeOf(XMLParserErrorCode::InputFailure));
    if (geteuid() != 0) {
        const QString locked = folder.write(QStringLiteral("locked.xml"), "<a/>");
        QFile::setPermissions(locked, {});
        EXPECT_THAT(parsedFile(locked).error.localizedDescription().toStdString(),
                    ::testing::AllOf(::testing::HasSubstr("locked.xml"),
                                     ::testing::HasSubstr("Permission denied")));
    }
}

TEST(XMLParserTest, ThereIsNoStreamForWhatIsNoLocalFile)
{
    EXPECT_EQ(InputStream::inputStreamWithURL(QUrl(QStringLiteral("http://localhost/a.xml"))),
              nullptr);
    EXPECT_EQ(InputStream::inputStreamWithURL(QUrl()), nullptr);
}

TEST(XMLParserTest, AFailingReadIsItsError)
{
    class FailingStream : public InputStream {
    public:
        bool open(Error*) override { return true; }
        qint64 read(char* buffer, qint64 maximumLength, Error* error) override
        {
            if (m_calls++ > 0) {
                platform::setError(
                    error, Error(QStringLiteral("Disk"), 5, QStringLiteral("The disk is gone.")));
                return -1;
            }
            buffer[0] = '<', buffer[1] = 'a', buffer[2] = '>';
            std::fill(buffer + 3, buffer + maximumLength, ' ');
            return maximumLength;
        }
        int m_calls = 0;
    } stream;
    XMLParser parser(stream);
    EXPECT_FALSE(parser.parse());
    EXPECT_EQ(parser.parserError().localizedDescription(), QStringLiteral("The disk is gone."));
}

} // namespace
