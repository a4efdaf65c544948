// SPDX-License-Identifier: MIT
#include "platform/xml/XMLDocument.h"

#include "ParserEvents.h"
#include "platform/xml/XMLParserError.h"

#include <QStringEncoder>

#include <thread>

namespace {

using platform::Error;
using platform::XMLDocument;
using platform::XMLNode;
using Tidy = XMLDocument::Tidy;

QString strict(const QByteArray& data)
{
    Error error;
    const auto document = XMLDocument::fromData(data, Tidy::No, &error);
    return document ? document->rootElement().xmlString()
                    : QStringLiteral("error: ") + error.localizedDescription();
}

// The markup of a document that must need repair.
QString repaired(const QByteArray& data)
{
    Error error;
    const auto document = XMLDocument::fromData(data, Tidy::Yes, &error);
    if (!document)
        return QStringLiteral("error: ") + error.localizedDescription();
    EXPECT_TRUE(document->wasRepaired());
    return document->rootElement().xmlString();
}

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

TEST(XMLDocumentTest, ReadsAWellFormedDocument)
{
    const auto document = XMLDocument::fromData("<en-note><div>a</div></en-note>", Tidy::Yes);
    ASSERT_TRUE(document);
    EXPECT_FALSE(document->wasRepaired());
    EXPECT_EQ(document->rootElement().name(), text("en-note"));
    EXPECT_EQ(document->rootElement().xmlString(), text("<en-note><div>a</div></en-note>"));
}

TEST(XMLDocumentTest, FindsTheRootElementByItsName)
{
    const auto document = XMLDocument::fromData("<en-note><div/></en-note>", Tidy::No);
    ASSERT_TRUE(document);
    EXPECT_TRUE(document->rootElementNamed(u"en-note"));
    EXPECT_FALSE(document->rootElementNamed(u"En-note"));
    EXPECT_FALSE(document->rootElementNamed(u"div"));
}

TEST(XMLDocumentTest, KnowsTheNamesOfHtmlsEntities)
{
    const QString expected =
        text("<a x=\"1\u00A02\u2026\">\u00A0é&amp;\u20AC𝒳</a>").replace(text("𝒳"), QString());
    EXPECT_EQ(strict("<a x='1&nbsp;2&hellip;'>&nbsp;&eacute;&amp;&euro;</a>"), expected);
    EXPECT_EQ(
        strict("<!DOCTYPE a SYSTEM 'x.dtd'><a x='1&nbsp;2&hellip;'>&nbsp;&eacute;&amp;&euro;</a>"),
        expected);
    EXPECT_EQ(strict("<?xml version='1.0' standalone='yes'?><a "
                     "x='1&nbsp;2&hellip;'>&nbsp;&eacute;&amp;&euro;</a>"),
              expected);
    const auto tidied = XMLDocument::fromData("<a>&nbsp;</a>", Tidy::Yes);
    ASSERT_TRUE(tidied);
    EXPECT_FALSE(tidied->wasRepaired());
}

TEST(XMLDocumentTest, AnUnknownEntityIsAnErrorOrStaysAsWritten)
{
    EXPECT_EQ(strict("<a>\n&foo;</a>"),
              text("error: Entity 'foo' not defined at line 2, column 6"));
    EXPECT_EQ(strict("<!DOCTYPE a SYSTEM 'x'><a>1&foo;2</a>"), text("<a>12</a>"));
    const auto document = XMLDocument::fromData("<a x='&foo;'>1&foo;2</a>", Tidy::Yes);
    ASSERT_TRUE(document);
    EXPECT_FALSE(document->wasRepaired());
    EXPECT_EQ(document->rootElement().xmlString(), text("<a x=\"&amp;foo;\">1&amp;foo;2</a>"));
}

TEST(XMLDocumentTest, EntitiesOfTheDocumentAreDropped)
{
    EXPECT_EQ(strict("<!DOCTYPE a [<!ENTITY e 'x'><!ENTITY nbsp 'y'><!ENTITY f SYSTEM "
                     "'file:///etc/passwd'>]>"
                     "<a x='1&e;2'>3&e;4&nbsp;5&f;6</a>"),
              text("<a x=\"12\">3456</a>"));
}

TEST(XMLDocumentTest, DefaultAttributesOfTheDocumentAreNotAdded)
{
    EXPECT_EQ(strict("<!DOCTYPE a [<!ATTLIST b x CDATA 'default' xmlns CDATA 'u'>]><a><b/></a>"),
              text("<a><b></b></a>"));
}

TEST(XMLDocumentTest, CDataBecomesText)
{
    const auto document = XMLDocument::fromData("<a>1<![CDATA[<b>&]]>2</a>", Tidy::No);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->rootElement().childCount(), 1);
    EXPECT_EQ(document->rootElement().firstChild()->kind(), XMLNode::Kind::Text);
    EXPECT_EQ(document->rootElement().xmlString(), text("<a>1&lt;b&gt;&amp;2</a>"));
}

TEST(XMLDocumentTest, SkipsWhatStandsBeforeTheDeclaration)
{
    EXPECT_EQ(strict("\n  <?xml version='1.0'?><a/>"), text("<a></a>"));
    EXPECT_EQ(strict("\xEF\xBB\xBF <?xml version='1.0'?><a/>"), text("<a></a>"));
    EXPECT_EQ(strict("\xEF\xBB\xBF<a/>"), text("<a></a>"));
    EXPECT_EQ(strict("\n\n<?xml version='1.0'?>\n<a></b>"),
              text("error: Opening and ending tag mismatch: a line 2 and b at line 4, column 8"));
}

TEST(XMLDocumentTest, ReadsUtf16)
{
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    EXPECT_EQ(strict(encoder.encode(QStringLiteral("<a>ä€</a>"))), text("<a>ä€</a>"));
    QStringEncoder again(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom);
    EXPECT_EQ(repaired(again.encode(QStringLiteral("<a>ä€<br></a>"))), text("<a>ä€<br></br></a>"));
}

TEST(XMLDocumentTest, WithoutContentThereIsNoDocument)
{
    for (const char* data :
         {"", "  \n ", "<?xml version='1.0'?>", "<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM 'x'>\n",
          "<!-- a comment -->", "\xEF\xBB\xBF", "<!DOCTYPE a [", "</a>"}) {
        Error error;
        EXPECT_FALSE(XMLDocument::fromData(data, Tidy::Yes, &error)) << data;
        EXPECT_EQ(error.domain(), platform::xmlParserErrorDomain) << data;
        EXPECT_FALSE(error.localizedDescription().isEmpty()) << data;
        EXPECT_FALSE(XMLDocument::fromData(data, Tidy::No, &error)) << data;
    }
    Error error;
    EXPECT_FALSE(XMLDocument::fromData("<?xml version='1.0'?>", Tidy::Yes, &error));
    EXPECT_EQ(error.localizedDescription(), text("The document has no content."));
}

TEST(XMLDocumentTest, WithoutTidyingAMalformedDocumentIsAnError)
{
    EXPECT_EQ(strict("<a>\n<br></a>"),
              text("error: Opening and ending tag mismatch: br line 2 and a at line 2, column 9"));
}

TEST(XMLDocumentTest, RepairsUnclosedAndCrossedTags)
{
    EXPECT_EQ(repaired("<en-note><div>a<br>b</div></en-note>"),
              text("<en-note><div>a<br></br>b</div></en-note>"));
    EXPECT_EQ(repaired("<en-note><b>x<i>y</b>z</i></en-note>"),
              text("<en-note><b>x<i>y</i></b>z</en-note>"));
    EXPECT_EQ(repaired("<en-note><div>a<div>b"),
              text("<en-note><div>a<div>b</div></div></en-note>"));
    EXPECT_EQ(repaired("<en-note>a & b &amp; c<d</en-note>").section(QLatin1Char('c'), 0, 0),
              text("<en-note>a &amp; b &amp; "));
}

TEST(XMLDocumentTest, ABreakWithAnEndTagIsOneBreak)
{
    EXPECT_EQ(repaired("<en-note>a<br></br>b<p></en-note>"),
              text("<en-note>a<br></br>b<p></p></en-note>"));
}

TEST(XMLDocumentTest, SelfClosedElementsStayEmptyInARepair)
{
    EXPECT_EQ(repaired("<en-note><en-media type=\"image/png\" hash=\"ab\"/>t<en-todo "
                       "checked=\"true\"/>u<br></en-note>"),
              text("<en-note><en-media type=\"image/png\" hash=\"ab\"></en-media>t"
                   "<en-todo checked=\"true\"></en-todo>u<br></br></en-note>"));
}

TEST(XMLDocumentTest, UnclosedUnknownElementsAreEmptyInARepair)
{
    EXPECT_EQ(repaired("<en-note><div><en-todo "
                       "checked=\"true\">milk</div><div><en-todo>eggs<b>!</b></div></en-note>"),
              text("<en-note><div><en-todo checked=\"true\"></en-todo>milk</div>"
                   "<div><en-todo></en-todo>eggs<b>!</b></div></en-note>"));
    EXPECT_EQ(
        repaired("<en-note><en-todo>a<en-todo>b<en-todo>c</en-note>"),
        text("<en-note><en-todo></en-todo>a<en-todo></en-todo>b<en-todo></en-todo>c</en-note>"));
}

TEST(XMLDocumentTest, ClosedUnknownElementsKeepTheirContentInARepair)
{
    EXPECT_EQ(
        repaired(
            "<en-note><en-crypt hint=\"h\">secret</en-crypt ><En-Todo>x</EN-TODO><br></en-note>"),
        text("<en-note><en-crypt "
             "hint=\"h\">secret</en-crypt><en-todo>x</en-todo><br></br></en-note>"));
}

TEST(XMLDocumentTest, ARepairKeepsTheRootOfTheSource)
{
    const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<!DOCTYPE en-note SYSTEM \"http://xml.evernote.com/pub/enml2.dtd\">\n";
    EXPECT_EQ(repaired(head + "<en-note style=\"x\"><br></en-note>"),
              text("<en-note style=\"x\"><br></br></en-note>"));
    EXPECT_EQ(repaired(head + "<!-- c --><en-note>a<br></en-note>\n"),
              text("<en-note>a<br></br></en-note>"));
    EXPECT_EQ(repaired(head + "<EN-NOTE BGCOLOR=\"X\">a<br></EN-NOTE>"),
              text("<en-note bgcolor=\"X\">a<br></br></en-note>"));
    EXPECT_EQ(
        repaired("<en-note><html><head><title>t</title></head><body>a<br></body></html></en-note>"),
        text("<en-note><title>t</title>a<br></br></en-note>"));
}

TEST(XMLDocumentTest, ARepairKeepsWhatStandsOutsideTheRoot)
{
    EXPECT_EQ(repaired("<en-note>a</en-note>b"), text("<div><en-note>a</en-note>b</div>"));
    EXPECT_EQ(repaired("<!DOCTYPE en-note SYSTEM 'x'><en-note>a</en-note>b<i>c</i>\n"),
              text("<en-note>ab<i>c</i>\n</en-note>"));
    EXPECT_EQ(repaired("0<en-note>a</en-note>"), text("<div><p>0<en-note>a</en-note></p></div>"));
    EXPECT_EQ(repaired("<div>a</div><div>b</div>"), text("<div><div>a</div><div>b</div></div>"));
    EXPECT_EQ(repaired("plain & simple"), text("<div><p>plain &amp; simple</p></div>"));
}

TEST(XMLDocumentTest, ARepairKeepsTheTextOfCDataSections)
{
    EXPECT_EQ(repaired("<en-note><br><![CDATA[1 < 2 <b>]]>x<![CDATA[y</en-note>"),
              text("<en-note><br></br>1 &lt; 2 &lt;b&gt;xy&lt;/en-note&gt;</en-note>"));
}

TEST(XMLDocumentTest, ARepairKeepsWhiteSpaceBetweenElements)
{
    EXPECT_EQ(repaired("<en-note><en-media/> <en-media/>\n<b>x</b> <i>y</i><br></en-note>"),
              text("<en-note><en-media></en-media> <en-media></en-media>\n<b>x</b> "
                   "<i>y</i><br></br></en-note>"));
}

TEST(XMLDocumentTest, ARepairReplacesWhatIsNoCharacter)
{
    EXPECT_EQ(repaired("<en-note>a\xFF"
                       "b\xC3(</en-note>"),
              text("<en-note>a\uFFFDb\uFFFD(</en-note>"));
    EXPECT_EQ(repaired(QByteArray("<en-note>a\0b\x01\x1F"
                                  "c</en-note>",
                                  25)),
              text("<en-note>abc</en-note>"));
    EXPECT_EQ(repaired("<en-note>a&#1;b&#0;c</en-note>"), text("<en-note>abc</en-note>"));
    EXPECT_EQ(repaired("<?xml version='1.0' encoding='ISO-8859-1'?><en-note>\xE9<br></en-note>"),
              text("<en-note>é<br></br></en-note>"));
}

TEST(XMLDocumentTest, ARepairDoesNotBelieveAMetaElementsEncoding)
{
    EXPECT_EQ(repaired("<en-note><meta http-equiv='Content-Type' content='text/html; "
                       "charset=iso-8859-1'>ä€</en-note>")
                  .section(QLatin1Char('>'), 3),
              text("ä€</en-note>"));
}

TEST(XMLDocumentTest, ARepairedDocumentsMarkupIsWellFormed)
{
    const QString markup = repaired("<en-note><!-- a -- b --->x<br><o:p a='1' a='2' b "
                                    "c=\"<\">y</o:p><script>1<2</script></en-note>");
    Error error;
    EXPECT_TRUE(XMLDocument::fromData(markup.toUtf8(), Tidy::No, &error))
        << markup.toStdString() << error.localizedDescription().toStdString();
}

TEST(XMLDocumentTest, NothingIsPrinted)
{
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    static_cast<void>(strict("<a>&x;<b></a>"));
    static_cast<void>(strict("<o:a p:x='1' xmlns:q='relative'><q:b/>"));
    static_cast<void>(strict("<?xml version='1.0' encoding='UTF-16'?><a>\xFF</a>"));
    static_cast<void>(strict("<!DOCTYPE a SYSTEM 'file:///no/such.dtd' [%x; <!ENTITY e SYSTEM "
                             "'file:///etc/passwd'>]><a>&e;</a>"));
    static_cast<void>(repaired("<en-note>\xFF<br>&x &y;</p></en-note>"));
    static_cast<void>(test::parsed("<?xml version='1.0' encoding='UTF-8'?><a>\xFF\xFF\xFF</a>"));
    static_cast<void>(test::parsed("<?xml version='1.0' encoding='EUC-JP'?><a>\xFF\xFF\xFF</a>"));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(XMLDocumentTest, ServesSeveralThreads)
{
    std::vector<std::thread> threads;
    std::array<int, 4> good = {};
    for (int& count : good) {
        threads.emplace_back([&count] {
            for (int round = 0; round < 200; ++round) {
                if (strict("<a x='1'>&eacute;<b/></a>") == text("<a x=\"1\">é<b></b></a>") &&
                    repaired("<a>\xC3<br></a>") == text("<a>\uFFFD<br></br></a>"))
                    ++count;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(good, ::testing::Each(200));
}

} // namespace
