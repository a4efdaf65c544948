// SPDX-License-Identifier: MIT
#include "enex/EvernoteXMLParseOperation.h"

#include "enex/ParseFixture.h"

namespace {

using platform::Error;
using platform::manifest::Record;
using platform::manifest::makeRecord;
using ::testing::ElementsAre;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

class EvernoteXMLParseOperationTest : public ParseFixture {};

INSTANTIATE_TEST_SUITE_P(Chunks, EvernoteXMLParseOperationTest, ::testing::Values(64 * 1024, 1),
                         [](const auto& chunk) { return chunk.param == 1 ? "OneByte" : "Usual"; });

TEST_P(EvernoteXMLParseOperationTest, NotesWithOnlyTitleAndContentGiveOneRecordEachInOrder)
{
    runNotes("<note><title>One</title><content><![CDATA[<en-note>1</en-note>]]></content></note>"
             "<note><title>Two</title><content><![CDATA[<en-note>2</en-note>]]></content></note>");
    ASSERT_EQ(m_seen.size(), 2u);
    EXPECT_EQ(m_seen[0].title, text("One"));
    EXPECT_EQ(m_seen[0].content, "<en-note>1</en-note>");
    EXPECT_EQ(m_seen[1].title, text("Two"));
    EXPECT_EQ(m_seen[1].content, "<en-note>2</en-note>");
    EXPECT_EQ(m_seen[0].directory, m_directory);
    EXPECT_EQ(m_seen[0].group, m_group);
    EXPECT_EQ(m_titlesInBlock, QStringList({text("One"), text("Two")}));
    ASSERT_EQ(m_completions.size(), 1u);
    EXPECT_FALSE(m_completions[0]);
    EXPECT_TRUE(m_operation->operationFinished());
    EXPECT_FALSE(m_operation->operationExecuting());
}

TEST_P(EvernoteXMLParseOperationTest, ReadsEveryField)
{
    runNotes("<note><title>T &amp; t</title><content><![CDATA[<en-note/>]]></content>"
             "<created>20130412T093015Z</created><updated>20130413T000000Z</updated><tag> a </tag><tag>b</tag>"
             "<note-attributes><author>nobody</author><source>web.clip</source>"
             "<source-url>http://example.org/?a=1&amp;b=2</source-url></note-attributes>"
             "<resource><data encoding=\"base64\">QU\nJD</data><mime>image/png</mime><width>40.5</width><height>30</height>"
             "<resource-attributes><timestamp>20120101T120000Z</timestamp><file-name>a&amp;b.png</file-name>"
             "</resource-attributes></resource>"
             "<resource><data encoding=\"base64\">RA==</data><mime>application/pdf</mime></resource></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    const SeenNote& note = m_seen[0];
    EXPECT_EQ(note.title, text("T & t"));
    EXPECT_EQ(note.created, QDateTime(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC));
    EXPECT_EQ(note.updated, QDateTime(QDate(2013, 4, 13), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(note.tags, QStringList({text("a"), text("b")}));
    EXPECT_EQ(note.source, text("web.clip"));
    EXPECT_EQ(note.sourceURL, text("http://example.org/?a=1&b=2"));
    ASSERT_EQ(note.resources.size(), 2u);
    const EvernoteXMLResource& image = *note.resources[0];
    EXPECT_EQ(image.base64Data(), "QU\nJD");
    EXPECT_EQ(image.mime(), text("image/png"));
    EXPECT_EQ(image.width(), 40.5);
    EXPECT_EQ(image.height(), 30);
    EXPECT_EQ(image.attributes().timestamp(), QDateTime(QDate(2012, 1, 1), QTime(12, 0), Qt::UTC));
    EXPECT_EQ(image.attributes().filename(), text("a&b.png"));
    EXPECT_EQ(note.resources[1]->mime(), text("application/pdf"));
    EXPECT_TRUE(note.resources[1]->attributes().filename().isEmpty());
}

TEST_P(EvernoteXMLParseOperationTest, ContentAsPlainCharactersIsIgnored)
{
    runNotes("<note><title>T</title><content>&lt;en-note&gt;text&lt;/en-note&gt;</content></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_TRUE(m_seen[0].content.isEmpty());
}

TEST_P(EvernoteXMLParseOperationTest, SeveralContentSectionsAreJoined)
{
    runNotes("<note><content><![CDATA[<en-note>a]]><![CDATA[b</en-note>]]></content></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].content, "<en-note>ab</en-note>");
}

TEST_P(EvernoteXMLParseOperationTest, WhiteSpaceBetweenTagsIsATagOfItsOwn)
{
    runNotes("<note><tag>a</tag>\n<tag>b</tag></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_THAT(m_seen[0].tags, ElementsAre(text("a"), QString(), text("b")));
}

TEST_P(EvernoteXMLParseOperationTest, ATagIsOneEntryWhateverItsLetters)
{
    runNotes("<note><tag>R&amp;D</tag><tag>Stra\u00dfe</tag><tag>\u65e5\u672c &#33;</tag></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_THAT(m_seen[0].tags, ElementsAre(text("R&D"), text("Stra\u00dfe"), text("\u65e5\u672c !")));
}

TEST_P(EvernoteXMLParseOperationTest, EachChunkOfATagIsAnEntry)
{
    runNotes("<note><tag>one<x/>not read</tag><tag>a<![CDATA[dropped]]>b</tag></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_THAT(m_seen[0].tags, ElementsAre(text("one"), text("a"), text("b")));
}

TEST_P(EvernoteXMLParseOperationTest, ADateOutsideThePatternLeavesNone)
{
    runNotes("<note><created>yesterday</created><updated>2013-04-12</updated></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_FALSE(m_seen[0].created);
    EXPECT_FALSE(m_seen[0].updated);
}

TEST_P(EvernoteXMLParseOperationTest, WhiteSpaceAfterADateClearsIt)
{
    runNotes("<note><created>20130412T093015Z</created>\n<updated>20130412T093015Z</updated><tag>t</tag></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_FALSE(m_seen[0].created);
    EXPECT_TRUE(m_seen[0].updated);
}

TEST_P(EvernoteXMLParseOperationTest, CharactersAfterAFieldsEndStillBelongToIt)
{
    runNotes("<note><title>A</title>B<content/>"
             "<resource><mime>a</mime>b<data encoding=\"base64\">QU</data>JD<resource-attributes><file-name>c</file-name>d"
             "</resource-attributes></resource>"
             "<note-attributes><source>e</source>f<source-url>g</source-url>h</note-attributes></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].title, text("AB"));
    EXPECT_EQ(m_seen[0].source, text("ef"));
    EXPECT_EQ(m_seen[0].sourceURL, text("gh"));
    ASSERT_EQ(m_seen[0].resources.size(), 1u);
    EXPECT_EQ(m_seen[0].resources[0]->mime(), text("ab"));
    EXPECT_EQ(m_seen[0].resources[0]->base64Data(), "QUJD");
    EXPECT_EQ(m_seen[0].resources[0]->attributes().filename(), text("cd"));
}

TEST_P(EvernoteXMLParseOperationTest, AnUnknownElementInANoteEndsTheFieldBefore)
{
    runNotes("<note><title>A</title><reminder-order>0</reminder-order>B<tag>t</tag></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].title, text("A"));
    EXPECT_THAT(m_seen[0].tags, ElementsAre(text("t")));
}

TEST_P(EvernoteXMLParseOperationTest, AnUnknownElementInAResourceLeavesItsStateAndItsCdataIsDropped)
{
    runNotes("<note><content><![CDATA[<en-note/>]]></content><resource><data encoding=\"base64\">QUJD</data>"
             "<mime>image/png</mime><recognition><![CDATA[<recoIndex/>]]>tail</recognition></resource></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].content, "<en-note/>");
    ASSERT_EQ(m_seen[0].resources.size(), 1u);
    EXPECT_EQ(m_seen[0].resources[0]->mime(), text("image/pngtail"));
}

TEST_P(EvernoteXMLParseOperationTest, AnUnknownElementInNoteAttributesEndsTheFieldBefore)
{
    runNotes("<note><note-attributes><source>s</source><latitude>1</latitude></note-attributes>x</note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].source, text("s"));
}

TEST_P(EvernoteXMLParseOperationTest, AResourcesAttributesElementStaysUntilTheResourceEnds)
{
    runNotes("<note><resource><resource-attributes><file-name>a</file-name></resource-attributes>x"
             "<file-name>b</file-name></resource></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].resources[0]->attributes().filename(), text("ab"));
}

TEST_P(EvernoteXMLParseOperationTest, ANestedTaskRunsIntoTheNote)
{
    runNotes("<note><title>N</title><task><title>T</title><created>20200101T000000Z</created></task></note>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].title, text("NT"));
    EXPECT_EQ(m_seen[0].created, QDateTime(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC));
}

TEST_P(EvernoteXMLParseOperationTest, DebugModeLogsEveryEventButNoText)
{
    m_debugMode = true;
    runNotes("<note><title>T</title><content><![CDATA[<x/>]]></content></note>");
    EXPECT_THAT(logLines(),
                ElementsAre(text("parser:didStartElement: en-export"), text("parser:didStartElement: note"),
                            text("parser:didStartElement: title"), text("parser:foundCharacters:"),
                            text("parser:didEndElement: title"), text("parser:didStartElement: content"),
                            text("parser:foundCDATA:"), text("parser:didEndElement: content"),
                            text("parser:didEndElement: note"), text("Converting \"T\""),
                            text("parser:didEndElement: en-export")));
}

TEST_P(EvernoteXMLParseOperationTest, ANoteWithinANoteIsConvertedAndTheOuterEndIsReportedEmpty)
{
    prepare(QUrl::fromLocalFile(m_folder.write(
        text("a.enex"), "<en-export><note><title>Outer</title><note/><title>lost</title></note></en-export>")));
    m_operation->setParseOperationDidExportItemBlock(
        [this](const Record& record, const std::optional<Error>&) { m_records.push_back(record); });
    m_operation->start();
    ASSERT_EQ(m_records.size(), 2u);
    EXPECT_NE(m_records[0], nullptr);
    EXPECT_EQ(m_records[1], nullptr);
    EXPECT_EQ(m_seen.size(), 1u);
    EXPECT_THAT(logLines(), ElementsAre(text("Converting \"Outer\""), text("Converting \"(null)\""), text("Skipping \"(null)\"")));
}

TEST_P(EvernoteXMLParseOperationTest, EntityBombsStayUnexpanded)
{
    run("<!DOCTYPE en-export [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
        "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">]>"
        "<en-export><note><title>x&c;y</title></note></en-export>");
    ASSERT_EQ(m_seen.size(), 1u);
    EXPECT_EQ(m_seen[0].title, text("xy"));
}

TEST_P(EvernoteXMLParseOperationTest, IsAsynchronous)
{
    EXPECT_TRUE(EvernoteXMLParseOperation().isAsynchronous());
}

} // namespace
