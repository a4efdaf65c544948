// SPDX-License-Identifier: MIT
//
// Files of today's Evernote, read as they stand and through the modernizer.
#include "enex/ParseFixture.h"

#include "support/QtPrinting.h"

#include <QBuffer>
#include <QDirIterator>
#include <QRegularExpression>

namespace {

using FileForm = EvernoteXMLParseOperation::FileForm;
using TimeStamps = EvernoteXMLParseOperation::TimeStamps;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

class ModernFileParseTest : public ParseFixture {
protected:
    const std::vector<SeenNote>& notesOf(const QByteArray& file, FileForm form)
    {
        m_seen.clear();
        m_completions.clear();
        m_fileForm = form;
        run(file);
        return m_seen;
    }
};

INSTANTIATE_TEST_SUITE_P(Chunks, ModernFileParseTest, ::testing::Values(64 * 1024, 1),
                         [](const auto& chunk) { return chunk.param == 1 ? "OneByte" : "Usual"; });

const QByteArray indentedFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE en-export SYSTEM "http://xml.evernote.com/pub/evernote-export4.dtd">
<en-export export-date="20220621T141333Z" application="Evernote" version="10.37.3">
  <note>
    <title>A &amp; b</title>
    <created>20210722T085928Z</created>
    <updated>
      20220520T222012Z
    </updated>
    <tag>one</tag>
    <tag>two</tag>
    <note-attributes>
      <author>someone</author>
      <source>web.clip7</source>
      <source-url>http://example.org/</source-url>
    </note-attributes>
    <content>
      <![CDATA[<en-note><div style="--en-task-group:true; --en-id:G"><div>p</div></div></en-note>      ]]>
    </content>
    <task>
      <title>T</title>
      <created>20220520T221209Z</created>
      <taskStatus>completed</taskStatus>
      <taskGroupNoteLevelID>G</taskGroupNoteLevelID>
    </task>
    <resource>
      <data encoding="base64">
QUJD
      </data>
      <mime>image/png</mime>
      <resource-attributes>
        <file-name>a.png</file-name>
        <timestamp>20220520T221209Z</timestamp>
      </resource-attributes>
    </resource>
  </note>
  <note>
    <title>Second</title>
    <created>20210722T085928Z</created>
  </note>
</en-export>
)";

TEST_P(ModernFileParseTest, ReadAsItStandsTheFileLosesWhatItHasNoPlaceFor)
{
    const std::vector<SeenNote>& notes = notesOf(indentedFile, FileForm::AsWritten);
    ASSERT_EQ(notes.size(), 2u);
    EXPECT_TRUE(notes[0].title.startsWith(text("A & b\n")));
    EXPECT_TRUE(notes[0].title.contains(text("T\n")));
    EXPECT_FALSE(notes[0].created);
    EXPECT_FALSE(notes[0].updated);
    EXPECT_EQ(notes[0].tags, QStringList({text("one"), QString(), text("two"), QString()}));
    EXPECT_EQ(notes[0].source.trimmed(), text("web.clip7"));
    EXPECT_EQ(notes[0].counts.tasks, 1u);
    EXPECT_EQ(notes[0].counts.leftOutTasks, 1u);
    EXPECT_EQ(notes[0].counts.taskLines, 0u);
    EXPECT_EQ(notes[0].counts.resources, 1u);
}

TEST_P(ModernFileParseTest, ReadAsAModernFileItComesThroughWhole)
{
    const std::vector<SeenNote>& notes = notesOf(indentedFile, FileForm::Modern);
    ASSERT_EQ(notes.size(), 2u);
    EXPECT_EQ(notes[0].title, text("A & b"));
    EXPECT_EQ(notes[0].created, QDateTime(QDate(2021, 7, 22), QTime(8, 59, 28), Qt::UTC));
    EXPECT_EQ(notes[0].updated, QDateTime(QDate(2022, 5, 20), QTime(22, 20, 12), Qt::UTC));
    EXPECT_EQ(notes[0].tags, QStringList({text("one"), text("two")}));
    EXPECT_EQ(notes[0].source, text("web.clip"));
    EXPECT_EQ(notes[0].sourceURL, text("http://example.org/"));
    EXPECT_EQ(notes[0].content, "<en-note><div>\u2611\uFE0E T</div></en-note>      ");
    EXPECT_EQ(notes[0].counts.tasks, 1u);
    EXPECT_EQ(notes[0].counts.leftOutTasks, 0u);
    EXPECT_EQ(notes[0].counts.taskLines, 1u);
    EXPECT_EQ(notes[0].counts.resources, 1u);
    ASSERT_EQ(notes[0].resources.size(), 1u);
    EXPECT_EQ(notes[0].resources[0]->getContentData(), QByteArray("ABC"));
    EXPECT_EQ(notes[0].resources[0]->mime(), text("image/png"));
    EXPECT_EQ(notes[0].resources[0]->attributes().filename(), text("a.png"));
    EXPECT_TRUE(notes[0].resources[0]->attributes().timestamp());
    EXPECT_EQ(notes[1].title, text("Second"));
    EXPECT_EQ(notes[1].counts, NoteCounts());
    ASSERT_EQ(m_completions.size(), 1u);
    EXPECT_FALSE(m_completions[0]);
}

TEST_P(ModernFileParseTest, StampsAreOfTheWallClockUnlessTheyAreAskedForInUtc)
{
    // A machine west of Greenwich, in summer.
    qputenv("TZ", "America/New_York");
    const QByteArray file =
        "<e><note><created>20210722T085928Z</created><resource><resource-attributes>"
        "<timestamp>20210722T085928Z</timestamp></resource-attributes></resource></note></e>";
    const QDateTime inUtc(QDate(2021, 7, 22), QTime(8, 59, 28), Qt::UTC);
    m_timeStamps = TimeStamps::UTC;
    for (const FileForm form : {FileForm::AsWritten, FileForm::Modern}) {
        ASSERT_EQ(notesOf(file, form).size(), 1u);
        EXPECT_EQ(m_seen[0].created, inUtc);
        EXPECT_EQ(m_seen[0].resources[0]->attributes().timestamp(), inUtc);
    }
    m_timeStamps = TimeStamps::WallClock;
    EXPECT_NE(notesOf(file, FileForm::AsWritten)[0].created, std::nullopt);
    qputenv("TZ", "UTC");
}

TEST_P(ModernFileParseTest, AStampThatIsNoDateStaysNone)
{
    const QByteArray file =
        "<e><note><created>2022-07-21</created><updated>2757600913T000000Z</updated></note></e>";
    for (const TimeStamps stamps : {TimeStamps::WallClock, TimeStamps::UTC}) {
        m_timeStamps = stamps;
        ASSERT_EQ(notesOf(file, FileForm::Modern).size(), 1u);
        EXPECT_FALSE(m_seen[0].created);
        EXPECT_FALSE(m_seen[0].updated);
    }
}

TEST_P(ModernFileParseTest, ANoteThatLinksMayNameGetsTheIdentifierThatTheyUse)
{
    const auto targets = std::make_shared<NoteLinkTargets>();
    for (const char* title : {"a", "b", "b"})
        targets->addNote(text(title));
    m_linkTargets = targets;
    const std::vector<SeenNote>& notes = notesOf(
        "<e><note><title>a</title></note><note><title>b</title></note></e>", FileForm::Modern);
    ASSERT_EQ(notes.size(), 2u);
    EXPECT_EQ(notes[0].identifier, targets->identifierForTitle(text("a")));
    EXPECT_EQ(notes[1].identifier.size(), 36);
}

TEST_P(ModernFileParseTest, CancellingAfterANoteEndsTheFile)
{
    m_fileForm = FileForm::Modern;
    m_afterEachNote = [this] {
        m_operation->cancel();
    };
    run(indentedFile);
    EXPECT_EQ(m_seen.size(), 1u);
    ASSERT_FALSE(m_completions.empty());
    EXPECT_EQ(m_completions.back()->code(), 512);
}

TEST_P(ModernFileParseTest, AnUnknownEncodingStillEndsTheFile)
{
    notesOf("<e><note><title>a</title></note><note><resource><data "
            "encoding=\"hex\">41</data></resource></note></e>",
            FileForm::Modern);
    EXPECT_EQ(m_seen.size(), 1u);
    ASSERT_FALSE(m_completions.empty());
    EXPECT_EQ(m_completions[0]->code(), 1003);
}

// A note as far as the form of its file must not matter; identifiers differ.
void expectSameNotes(const std::vector<SeenNote>& left, const std::vector<SeenNote>& right,
                     const QString& name)
{
    ASSERT_EQ(left.size(), right.size()) << name.toStdString();
    for (std::size_t index = 0; index < left.size(); ++index) {
        const SeenNote& one = left[index];
        const SeenNote& other = right[index];
        EXPECT_EQ(one.title, other.title) << name.toStdString();
        EXPECT_EQ(one.content, other.content) << name.toStdString();
        EXPECT_EQ(one.created, other.created) << name.toStdString();
        EXPECT_EQ(one.updated, other.updated) << name.toStdString();
        EXPECT_EQ(one.tags, other.tags) << name.toStdString();
        EXPECT_EQ(one.source, other.source) << name.toStdString();
        EXPECT_EQ(one.sourceURL, other.sourceURL) << name.toStdString();
        ASSERT_EQ(one.resources.size(), other.resources.size()) << name.toStdString();
        for (std::size_t place = 0; place < one.resources.size(); ++place) {
            const EvernoteXMLResource& oneResource = *one.resources[place];
            const EvernoteXMLResource& otherResource = *other.resources[place];
            EXPECT_EQ(oneResource.base64Data(), otherResource.base64Data()) << name.toStdString();
            EXPECT_EQ(oneResource.mime(), otherResource.mime()) << name.toStdString();
            EXPECT_EQ(oneResource.width(), otherResource.width()) << name.toStdString();
            EXPECT_EQ(oneResource.attributes().filename(), otherResource.attributes().filename())
                << name.toStdString();
            EXPECT_EQ(oneResource.attributes().timestamp(), otherResource.attributes().timestamp())
                << name.toStdString();
        }
    }
}

QByteArray copyOf(const QByteArray& file)
{
    const auto input = platform::InputStream::inputStreamWithData(file);
    QBuffer output;
    EXPECT_TRUE(output.open(QIODevice::WriteOnly));
    return EnexModernizer::writeModernizedCopy(*input, output) ? output.data() : QByteArray();
}

TEST_P(ModernFileParseTest, ACopyReadAsItStandsGivesWhatTheFileGivesAsAModernOne)
{
    const std::vector<SeenNote> whole = notesOf(indentedFile, FileForm::Modern);
    const QByteArray copy = copyOf(indentedFile);
    expectSameNotes(whole, notesOf(copy, FileForm::AsWritten), text("as it stands"));
    expectSameNotes(whole, notesOf(copy, FileForm::Modern), text("as a modern one"));
}

TEST_P(ModernFileParseTest, IndentingAFileChangesNothing)
{
    QByteArray indented = indentedFile;
    const QByteArray start = indented.left(indented.indexOf("<note>"));
    const QByteArray notes = indented.mid(start.size());
    QByteArray compact;
    // White space goes where it stands between two tags, or beside a section.
    compact =
        QString::fromUtf8(notes).replace(QRegularExpression(text(">\\s+<")), text("><")).toUtf8();
    ASSERT_LT(compact.size(), notes.size());
    expectSameNotes(notesOf(start + notes, FileForm::Modern),
                    notesOf(start + compact, FileForm::Modern), text("compact"));
}

TEST_P(ModernFileParseTest, EveryRealFileGivesTheSameNotesAsItsCopy)
{
    const QString corpus = qEnvironmentVariable("VUPUGE_SHARED_DIRECTORY") + text("/corpus");
    if (!QDir(corpus).exists())
        GTEST_SKIP() << "there are no real exports at " << corpus.toStdString();
    int compared = 0;
    QDirIterator files(corpus, {text("*.enex")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QByteArray file = test::readFile(files.next());
        const QByteArray copy = copyOf(file);
        // One byte at a time, the largest take too long.
        if (copy.isEmpty() || (GetParam() == 1 && file.size() > 50'000))
            continue;
        const std::vector<SeenNote> whole = notesOf(file, FileForm::Modern);
        expectSameNotes(whole, notesOf(copy, FileForm::AsWritten), files.fileName());
        ++compared;
    }
    EXPECT_GT(compared, 50);
}

TEST_P(ModernFileParseTest, ATaskOfAHundredThousandIsNoTrouble)
{
    if (GetParam() == 1)
        GTEST_SKIP() << "takes too long one byte at a time";
    constexpr int count = 100'000;
    QByteArray file = "<e><note>\n<title>n</title><content><![CDATA[<en-note/>]]></content>\n";
    for (int index = 0; index < count; ++index)
        file += "  <task><title>t</title><taskGroupNoteLevelID>g</taskGroupNoteLevelID></task>\n";
    const std::vector<SeenNote>& notes = notesOf(file + "</note></e>", FileForm::Modern);
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0].counts.taskLines, static_cast<quint64>(count));
    EXPECT_EQ(notes[0].content.count("<en-todo"), count);
}

} // namespace
