// SPDX-License-Identifier: MIT
#include "enex/EnexModernizer.h"

#include "enex/EnexWriter.h"
#include "enex/EvernoteXMLErrors.h"
#include "platform/xml/XMLParser.h"

#include <QBuffer>

#include "support/QtPrinting.h"

#include <gtest/gtest.h>

namespace {

using platform::Error;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

const QByteArray head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE en-export SYSTEM \"http://xml.evernote.com/pub/evernote-export3.dtd\">\n"
    "<en-export>";
const QByteArray tail = "</en-export>\n";
const QByteArray emptyContent = "<content><![CDATA[<en-note></en-note>]]></content>";

// Every test runs with the usual chunks and with chunks of one byte.
class EnexModernizerTest : public ::testing::TestWithParam<qsizetype> {
protected:
    QByteArray modernizedFile(const QByteArray& file)
    {
        const auto input = platform::InputStream::inputStreamWithData(file);
        QBuffer output;
        EXPECT_TRUE(output.open(QIODevice::WriteOnly));
        platform::XMLParser parser(*input, GetParam());
        EnexWriter writer(output);
        EnexModernizer modernizer(writer);
        parser.setDelegate(&modernizer);
        writer.begin(parser);
        EXPECT_TRUE(parser.parse()) << parser.parserError().description().toStdString();
        return output.data();
    }

    // What becomes of notes, without what stands round them, and without the bodies of those that
    // have none.
    QByteArray modernized(const QByteArray& notes)
    {
        const QByteArray file = modernizedFile("<en-export>" + notes + "</en-export>");
        EXPECT_TRUE(file.startsWith(head) && file.endsWith(tail)) << file.toStdString();
        return file.mid(head.size(), file.size() - head.size() - tail.size())
            .replace(emptyContent, "");
    }

    // The body of a note with one more element.
    QByteArray bodyOf(const QByteArray& body, const QByteArray& tasks)
    {
        const QByteArray note =
            modernized("<note><content><![CDATA[" + body + "]]></content>" + tasks + "</note>");
        const QByteArray opening = "<note><content><![CDATA[";
        const QByteArray closing = "]]></content></note>\n";
        EXPECT_TRUE(note.startsWith(opening) && note.endsWith(closing)) << note.toStdString();
        return note.mid(opening.size(), note.size() - opening.size() - closing.size());
    }
};

INSTANTIATE_TEST_SUITE_P(Chunks, EnexModernizerTest, ::testing::Values(64 * 1024, 1),
                         [](const auto& chunk) { return chunk.param == 1 ? "OneByte" : "Usual"; });

TEST_P(EnexModernizerTest, WhiteSpaceBetweenTheElementsOfANoteIsDropped)
{
    EXPECT_EQ(
        modernized(
            "\n  <note>\n    <title>A</title>\n    <created>20130412T093015Z</created>\n"
            "    <tag>x</tag>\n    <note-attributes>\n      <source>s</source>\n    "
            "</note-attributes>\n"
            "    <content>\n      <![CDATA[<en-note/>]]>\n    </content>\n"
            "    <resource>\n      <data encoding=\"base64\">QUJD</data>\n      <mime>a/b</mime>\n"
            "      <resource-attributes>\n        <file-name>f</file-name>\n      "
            "</resource-attributes>\n"
            "    </resource>\n  </note>\n"),
        "<note><title>A</title><created>20130412T093015Z</created><tag>x</tag>"
        "<note-attributes><source>s</source></note-attributes>"
        "<resource><data encoding=\"base64\">QUJD</data><mime>a/b</mime>"
        "<resource-attributes><file-name>f</file-name></resource-attributes></resource>"
        "<content><![CDATA[<en-note/>]]></content></note>\n");
}

TEST_P(EnexModernizerTest, TheWhiteSpaceOfTitlesFileNamesDataAndBodiesStays)
{
    EXPECT_EQ(modernized(
                  "<note><title> a\n b </title><resource><data encoding=\"base64\">\nQU JD\n</data>"
                  "<resource-attributes><file-name> f </file-name></resource-attributes></resource>"
                  "<content><![CDATA[\n <en-note> t </en-note> \n]]></content></note>"),
              "<note><title> a\n b </title><resource><data encoding=\"base64\">\nQU JD\n</data>"
              "<resource-attributes><file-name> f </file-name></resource-attributes></resource>"
              "<content><![CDATA[\n <en-note> t </en-note> \n]]></content></note>\n");
}

TEST_P(EnexModernizerTest, DatesTagsAndNumbersComeTrimmedAndWhole)
{
    EXPECT_EQ(modernized("<note><created>\n 20130412T093015Z\n</created><updated> </updated><tag> "
                         "a<!-- c -->\xC3\xA9"
                         "b&amp;c </tag><tag>\n</tag><resource><mime>\na/b </mime><width> 5 "
                         "</width><height>6\n</height>"
                         "<resource-attributes><timestamp> "
                         "20130412T093015Z</timestamp></resource-attributes></resource>"
                         "</note>"),
              "<note><created>20130412T093015Z</created><updated></updated><tag>a\xC3\xA9"
              "b&amp;c</tag><tag></tag><resource><mime>a/b</mime><width>5</width><height>6</height>"
              "<resource-attributes><timestamp>20130412T093015Z</timestamp></resource-attributes></"
              "resource>"
              "</note>\n");
}

TEST_P(EnexModernizerTest, ElementsThatAreNotReadAreDroppedWithTheirChildren)
{
    EXPECT_EQ(
        modernized(
            "<note><title>A<b>no</b>B</title><other><title>no</title><created>no</created></other>"
            "<note-attributes><author>no</author><source-url>u</source-url></note-attributes>"
            "<resource><recognition><![CDATA[<!DOCTYPE "
            "r><r/>]]></recognition><duration>1</duration>"
            "<mime>m</mime></resource></note>"),
        "<note><title>AB</title><note-attributes><source-url>u</source-url></note-attributes>"
        "<resource><mime>m</mime></resource></note>\n");
}

TEST_P(EnexModernizerTest, AClassicFilePassesAsItIsButForTheOrder)
{
    const QByteArray classic =
        "<note><title>T &amp; t &lt;&gt;</title><created>20130412T093015Z</created><tag>a</tag>"
        "<note-attributes><source>web.clip</source><source-url>http://h/?a=1&amp;b</source-url></"
        "note-attributes>"
        "<resource><data encoding=\"base64\">QUJD</data><mime>image/png</mime></resource>"
        "<content><![CDATA[<en-note><a "
        "href=\"evernote:///view/1/s1/2/3/\">n</a>&nbsp;</en-note>]]></content></note>\n";
    EXPECT_EQ(modernized(classic), classic);
}

TEST_P(EnexModernizerTest, WhatStandsOutsideNotesPasses)
{
    const QByteArray file =
        modernizedFile("<en-export export-date=\"d\" application=\"a&quot;&#10;&lt;\" "
                       "version=\"10\">\n <other x='1'>t</other>\n</en-export>");
    EXPECT_EQ(file, head.chopped(1) +
                        " export-date=\"d\" application=\"a&quot;&#10;&lt;\" version=\"10\">"
                        "<other x=\"1\">t</other></en-export>\n");
}

TEST_P(EnexModernizerTest, TheNewNameOfClipsBecomesTheOldOne)
{
    EXPECT_EQ(
        modernized("<note><note-attributes><source> web.clip7\n</source></note-attributes></note>"),
        "<note><note-attributes><source>web.clip</source></note-attributes></note>\n");
    EXPECT_EQ(
        modernized("<note><note-attributes><source>web.clip77</source></note-attributes></note>"),
        "<note><note-attributes><source>web.clip77</source></note-attributes></note>\n");
}

TEST_P(EnexModernizerTest, CDataCountsAsCharactersOutsideTheBody)
{
    EXPECT_EQ(modernized("<note><title>a<![CDATA[<b>]]></title><tag><![CDATA[ t ]]></tag></note>"),
              "<note><title>a&lt;b&gt;</title><tag>t</tag></note>\n");
}

TEST_P(EnexModernizerTest, ABodyOfCharactersBecomesCData)
{
    EXPECT_EQ(modernized("<note><content> &lt;en-note&gt;a&lt;/en-note&gt; </content></note>"),
              "<note><content><![CDATA[ <en-note>a</en-note> ]]></content></note>\n");
    EXPECT_EQ(modernized("<note><content>x<![CDATA[<en-note/>]]>y</content></note>"),
              "<note><content><![CDATA[<en-note/>]]></content></note>\n");
}

TEST_P(EnexModernizerTest, SectionsOfABodyAreJoinedAndPartedWhereTheirEndWouldStand)
{
    const QByteArray file = modernized(
        "<note><content><![CDATA[<en-note>a]]]]>\n<![CDATA[>b</en-note>]]></content></note>");
    EXPECT_EQ(file,
              "<note><content><![CDATA[<en-note>a]]]]><![CDATA[>b</en-note>]]></content></note>\n");
    EXPECT_EQ(modernized(file), file);
}

TEST_P(EnexModernizerTest, DataWithoutAnEncodingIsBase64)
{
    EXPECT_EQ(modernized("<note><resource><data>QQ==</data></resource><resource><data "
                         "encoding=\"hex\">41</data></resource></note>"),
              "<note><resource><data encoding=\"base64\">QQ==</data></resource>"
              "<resource><data encoding=\"hex\">41</data></resource></note>\n");
}

TEST_P(EnexModernizerTest, ACarriageReturnComesThrough)
{
    EXPECT_EQ(modernized("<note><title>a&#13;b</title></note>"),
              "<note><title>a&#13;b</title></note>\n");
}

TEST_P(EnexModernizerTest, ANoteInsideANoteIsToldOfAsAnEmptyOne)
{
    EXPECT_EQ(modernized("<note><title>a<note/></title><x><note><title>b</title></note></x>"
                         "<content><![CDATA[c]]></content></note><note><title>d</title></note>"),
              "<note><title>a</title><content><![CDATA[c]]></content></note>\n<note></"
              "note>\n<note></note>\n"
              "<note><title>d</title></note>\n");
}

TEST_P(EnexModernizerTest, TasksStandWhereTheirGroupStands)
{
    EXPECT_EQ(
        bodyOf(
            "<?xml version=\"1.0\"?><!DOCTYPE en-note SYSTEM \"x\"><en-note><div>before</div>"
            "<div style=\"--en-task-group:true; --en-id:G;color:red\"><div "
            "style=\"background:url(&quot;data:a;b&quot;)\">"
            "Content not supported</div></div><div>after</div></en-note>",
            "<task><title> One &lt;1&gt; &amp; \"more\"</title><created>20200101T000000Z</created>"
            "<taskStatus>open</taskStatus><taskGroupNoteLevelID>G</taskGroupNoteLevelID></task>\n"
            "<task><title>Two</title><taskStatus>completed</taskStatus>"
            "<taskGroupNoteLevelID>G</taskGroupNoteLevelID></task>"),
        "<?xml version=\"1.0\"?><!DOCTYPE en-note SYSTEM \"x\"><en-note><div>before</div>"
        "<div><en-todo checked=\"false\"/>One &lt;1&gt; &amp; &quot;more&quot;</div>"
        "<div><en-todo checked=\"true\"/>Two</div><div>after</div></en-note>");
}

TEST_P(EnexModernizerTest, ATaskLeavesTheNotesOwnFieldsAlone)
{
    EXPECT_EQ(modernized("<note><title>Note</title><created>20200101T000000Z</created><tag>t</"
                         "tag><task><title>Task</title>"
                         "<created>20210101T000000Z</created><updated>20210101T000000Z</"
                         "updated><tag>no</tag></task></note>"),
              "<note><title>Note</title><created>20200101T000000Z</created><tag>t</"
              "tag><content><![CDATA[<en-note>"
              "<div><en-todo checked=\"false\"/>Task</div></en-note>]]></content></note>\n");
}

TEST_P(EnexModernizerTest, DueDatesRemindersRepeatsAndFlagsAreTold)
{
    EXPECT_EQ(
        bodyOf("<en-note/>",
               "<task><title>T</title><taskFlag>true</taskFlag><dueDate>20220528T215959Z</dueDate>"
               "<dueDateUIOption>date_only</dueDateUIOption><timeZone>Europe/Budapest</timeZone>"
               "<recurrence>RRULE:FREQ=DAILY</recurrence>"
               "<reminder><created>20220520T221603Z</created><reminderDate>20220522T070000Z</"
               "reminderDate>"
               "<reminderDateUIOption>date_time</reminderDateUIOption><timeZone>Europe/Budapest</"
               "timeZone></reminder>"
               "<reminder><reminderDate>20220523T070000Z</reminderDate></reminder></task>"),
        "<en-note><div><en-todo checked=\"false\"/>T (Due: 2022-05-28; Reminder: 2022-05-22 09:00; "
        "Reminder: 2022-05-23 07:00 UTC; Repeats: RRULE:FREQ=DAILY; Flagged)</div></en-note>");
}

TEST_P(EnexModernizerTest, ANoteLinkStaysAsItIs)
{
    const QByteArray body =
        "<en-note><a href=\"evernote:///view/1/s1/g/g/\" rev=\"en_rl_none\">x</a></en-note>";
    EXPECT_EQ(bodyOf(body, ""), body);
}

TEST_P(EnexModernizerTest, ANoteWithoutABodyGetsAnEmptyOne)
{
    const QByteArray title = "<note><title>a</title>";
    for (const QByteArray content :
         {"", "<content/>", "<content> </content>", "<content><![CDATA[]]></content>",
          "<content><![CDATA[ \n]]></content>"}) {
        const QByteArray file =
            modernizedFile("<en-export>" + title + content + "</note></en-export>");
        EXPECT_TRUE(file.contains("<en-note></en-note>]]></content></note>")) << file.toStdString();
    }
    EXPECT_EQ(modernizedFile("<en-export>" + title +
                             "<content><![CDATA[<?xml version=\"1.0\"?>\n<!DOCTYPE en-note> "
                             "]]></content></note></en-export>"),
              head + title +
                  "<content><![CDATA[<?xml version=\"1.0\"?>\n<!DOCTYPE en-note> "
                  "<en-note></en-note>]]></content></note>\n" +
                  tail);
    // Text without a tag is a body.
    EXPECT_EQ(modernized(title + "<content><![CDATA[text]]></content></note>"),
              title + "<content><![CDATA[text]]></content></note>\n");
}

TEST_P(EnexModernizerTest, AFileNameThatCouldNotBeOneBecomesOne)
{
    const auto fileName = [this](const QByteArray& name) {
        const QByteArray start = "<note><resource><resource-attributes><file-name>";
        const QByteArray end = "</file-name></resource-attributes></resource></note>\n";
        const QByteArray note = modernized(start + name + end);
        EXPECT_TRUE(note.startsWith(start) && note.endsWith(end)) << note.toStdString();
        return note.mid(start.size(), note.size() - start.size() - end.size());
    };
    EXPECT_EQ(fileName("Sketch 27/11/2021 12:59.png"), "Sketch 27-11-2021 12-59.png");
    EXPECT_EQ(fileName("../../x"), "-.-..-x");
    EXPECT_EQ(fileName(".."), "-.");
    EXPECT_EQ(fileName("a:b\\c~.txt"), "a:b\\c~.txt");
}

TEST_P(EnexModernizerTest, TheCountOfTasksIsThatOfTheNoteThatEnds)
{
    class Ends : public platform::XMLParserDelegate {
    public:
        void parserDidEndElement(platform::XMLParser&, const QString& name) override
        {
            if (name == QLatin1String("note"))
                counts.push_back(modernizer->taskCount());
        }
        EnexModernizer* modernizer = nullptr;
        std::vector<qsizetype> counts;
    };
    const auto input = platform::InputStream::inputStreamWithData(
        "<e><note><task/><task/></note><note/><note><content><x/></content><task/></note></e>");
    platform::XMLParser parser(*input, GetParam());
    Ends ends;
    EnexModernizer modernizer(ends);
    ends.modernizer = &modernizer;
    parser.setDelegate(&modernizer);
    ASSERT_TRUE(parser.parse());
    EXPECT_EQ(ends.counts, (std::vector<qsizetype>{2, 0, 1}));
}

TEST_P(EnexModernizerTest, AnUnreadableBodyIsNotCoveredUpByItsTasks)
{
    EXPECT_EQ(
        modernized(
            "<note><content><en-note>x</en-note></content><task><title>t</title></task></note>"),
        "<note><content></content></note>\n");
}

TEST_P(EnexModernizerTest, NothingFollowsAnAbort)
{
    class Aborting : public platform::XMLParserDelegate {
    public:
        void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                                   const platform::XMLAttributes&) override
        {
            events += name;
            if (name == QLatin1String("content"))
                parser.abortParsing();
        }
        void parserFoundCData(platform::XMLParser&, QByteArrayView) override
        {
            events += text("cdata");
        }
        void parserDidEndElement(platform::XMLParser&, const QString& name) override
        {
            events += QLatin1Char('/') + name;
        }
        QStringList events;
    };
    const auto input = platform::InputStream::inputStreamWithData(
        "<e><note><content><![CDATA[a]]></content></note></e>");
    platform::XMLParser parser(*input, GetParam());
    Aborting aborting;
    EnexModernizer modernizer(aborting);
    parser.setDelegate(&modernizer);
    EXPECT_FALSE(parser.parse());
    EXPECT_EQ(aborting.events, QStringList({text("e"), text("note"), text("content")}));
}

TEST(EnexModernizerCopyTest, ACopyIsTheSameWhenItIsCopied)
{
    const auto copyOf = [](const QByteArray& file) {
        const auto input = platform::InputStream::inputStreamWithData(file);
        QBuffer output;
        EXPECT_TRUE(output.open(QIODevice::WriteOnly));
        EXPECT_TRUE(EnexModernizer::writeModernizedCopy(*input, output));
        return output.data();
    };
    const QByteArray copy = copyOf("<en-export>\n <note>\n <title>a</title>\n <content>\n  "
                                   "<![CDATA[<en-note/>]]>\n </content>\n"
                                   " <task><title>t</title></task>\n </note>\n</en-export>");
    EXPECT_EQ(copyOf(copy), copy);
    EXPECT_EQ(copy, head +
                        "<note><title>a</title><content><![CDATA[<en-note><div><en-todo "
                        "checked=\"false\"/>t</div></en-note>]]>"
                        "</content></note>\n" +
                        tail);
}

TEST(EnexModernizerCopyTest, AFileThatIsNotWellFormedGivesTheReadersError)
{
    const auto input = platform::InputStream::inputStreamWithData("<en-export><note></en-export>");
    QBuffer output;
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    Error error;
    EXPECT_FALSE(EnexModernizer::writeModernizedCopy(*input, output, &error));
    EXPECT_EQ(error.domain(), text("NSXMLParserErrorDomain"));
}

TEST(EnexModernizerCopyTest, AFileThatIsNotThereGivesAnError)
{
    QBuffer output;
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    Error error;
    EXPECT_FALSE(EnexModernizer::writeModernizedCopy(text("/nowhere/at/all.enex"), output, &error));
    EXPECT_FALSE(error.isNull());
    Error pathError;
    EXPECT_FALSE(EnexModernizer::writeModernizedCopy(QString(), output, &pathError));
    EXPECT_EQ(pathError.domain(), evernoteXMLParseOperationErrorDomain);
    EXPECT_EQ(pathError.code(), 1001);
}

TEST(EnexModernizerCopyTest, AnOutputThatIsFullGivesAnError)
{
    class Full : public QIODevice {
    protected:
        qint64 readData(char*, qint64) override { return -1; }
        qint64 writeData(const char*, qint64 length) override
        {
            room -= length;
            return room < 0 ? -1 : length;
        }
        qint64 room = 1000;
    };
    for (const qsizetype length : {100, 300 * 1024}) {
        Full output;
        ASSERT_TRUE(output.open(QIODevice::WriteOnly));
        const auto input = platform::InputStream::inputStreamWithData(
            "<e><note><content><![CDATA[" + QByteArray(length, 'x') +
            "]]></content></note><note><title>" + QByteArray(2000, 'y') + "</title></note></e>");
        Error error;
        EXPECT_FALSE(EnexModernizer::writeModernizedCopy(*input, output, &error));
        EXPECT_EQ(error.code(), EvernoteXMLParseOperationErrorCopyNotWritten);
    }
}

TEST(EnexWriterTest, CharactersThatXmlForbidsAreReplaced)
{
    const auto input = platform::InputStream::inputStreamWithData("<x/>");
    platform::XMLParser parser(*input);
    QBuffer output;
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    EnexWriter writer(output);
    writer.parserFoundCharacters(parser, QUtf8StringView("a\x01\xEF\xBF\xBE\xC3\xA9\t", 8));
    writer.parserFoundCData(parser, QByteArrayView("b\x02\xEF\xBF\xBF\xC3\xA9\n", 8));
    writer.parserDidEndDocument(parser);
    EXPECT_EQ(
        output.data(),
        "a\xEF\xBF\xBD\xEF\xBF\xBD\xC3\xA9\t<![CDATA[b\xEF\xBF\xBD\xEF\xBF\xBD\xC3\xA9\n]]>\n");
}

TEST(EnexWriterTest, AVeryLongSectionIsWrittenWholeAndPartedAtItsEndSigns)
{
    const QByteArray body =
        QByteArray(200 * 1024, 'x') + "]]>" + QByteArray(200 * 1024, 'y') + "]]>]]>";
    const auto input = platform::InputStream::inputStreamWithData("<x/>");
    platform::XMLParser parser(*input);
    QBuffer output;
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    EnexWriter writer(output);
    writer.parserFoundCData(parser, body);
    writer.parserDidEndDocument(parser);
    QByteArray found = output.data();
    EXPECT_EQ(found.count("<![CDATA["), 4);
    found.replace("]]><![CDATA[", "");
    EXPECT_EQ(found, "<![CDATA[" + body + "]]>\n");
}

} // namespace
