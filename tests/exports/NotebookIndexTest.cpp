// SPDX-License-Identifier: MIT
#include "exports/NotebookIndex.h"

#include "exports/EnexDocuments.h"
#include "exports/SelectedNotesStream.h"
#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QStringEncoder>

namespace {

class NotebookIndexTest : public testing::Test {
protected:
    void TearDown() override { platform::UserDefaults::standard().clearOverrides(); }

    std::shared_ptr<const NotebookIndex> indexOf(const QByteArray& data)
    {
        m_path = m_folder.write("a.enex", data);
        return NotebookIndex::ofFile(m_path, &m_error);
    }

    // The bytes of an ENEX file of these notes.
    QByteArray read(const std::vector<SelectedNotesStream::Note>& notes)
    {
        SelectedNotesStream stream(notes);
        QByteArray bytes;
        if (!stream.open(&m_error))
            return "not opened";
        for (std::array<char, 100> buffer;;) {
            const qint64 length = stream.read(buffer.data(), buffer.size(), &m_error);
            if (length < 0)
                return "not read";
            if (length == 0)
                return bytes;
            bytes.append(buffer.data(), length);
        }
    }

    test::ScratchFolder m_folder;
    QString m_path;
    platform::Error m_error;
};

TEST_F(NotebookIndexTest, PropertiesAndPlacesOfNotesAreKnown)
{
    const QByteArray first =
        test::note("A &amp; <![CDATA[b]]>", "text",
                   "<created>20240102T030405Z</created><updated>20240203T040506Z</updated>"
                   "<tag>one</tag><tag>two &amp; three</tag><note-attributes><source-url>"
                   "https://example.com/?a&amp;b</source-url></note-attributes>");
    const QByteArray second = test::note("Second");
    const QByteArray data = test::document(first + second);
    const auto index = indexOf(data);
    ASSERT_TRUE(index);
    ASSERT_EQ(index->notes().size(), 2u);
    const NotebookIndex::Note& note = index->notes()[0];
    EXPECT_TRUE(note.title.startsWith("A & "));
    EXPECT_EQ(note.tags, QStringList({"one", "two & three"}));
    EXPECT_EQ(note.created, QDateTime(QDate(2024, 1, 2), QTime(3, 4, 5)));
    EXPECT_EQ(note.updated, QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6)));
    EXPECT_EQ(note.sourceURL, "https://example.com/?a&b");
    EXPECT_EQ(data.sliced(note.start, note.end - note.start), first);
    EXPECT_EQ(index->notes()[1].title, "Second");
    EXPECT_FALSE(index->notes()[1].created.isValid());
    EXPECT_TRUE(index->notes()[1].sourceURL.isNull());
    EXPECT_TRUE(index->notes()[1].tags.isEmpty());
    EXPECT_EQ(index->path(), m_path);
    EXPECT_EQ(index->notesPath(), m_path);
}

TEST_F(NotebookIndexTest, AnIndentedFileHasTheSamePropertiesAsACompactOne)
{
    const auto index = indexOf(test::document(
        "  <note>\n    <title>T</title>\n    <created>\n20240102T030405Z\n    </created>\n"
        "    <tag>\n  one\n </tag>\n    <tag>two</tag>\n    <note-attributes>\n      "
        "<author>x</author>\n"
        "      <source-url>\n https://example.com/ \n</source-url>\n    </note-attributes>\n"
        "    <content>\n<![CDATA[<en-note/>]]>\n</content>\n"
        "    <task>\n      <title>No title of the note</title>\n      <created>20990102T030405Z"
        "</created>\n    </task>\n  </note>\n"));
    ASSERT_TRUE(index);
    const NotebookIndex::Note& note = index->notes()[0];
    EXPECT_EQ(note.title, "T");
    EXPECT_EQ(note.tags, QStringList({"one", "two"}));
    EXPECT_EQ(note.created, QDateTime(QDate(2024, 1, 2), QTime(3, 4, 5)));
    EXPECT_EQ(note.sourceURL, "https://example.com/");
}

TEST_F(NotebookIndexTest, TimeStampsAreReadAsTheConversionReadsThem)
{
    platform::UserDefaults::standard().setOverride("TimestampsInUTC", true);
    const auto index =
        indexOf(test::document(test::note("a", "x", "<created>20240702T030405Z</created>")));
    EXPECT_EQ(index->notes()[0].created, QDateTime(QDate(2024, 7, 2), QTime(3, 4, 5), Qt::UTC));
}

TEST_F(NotebookIndexTest, AFileInAnotherWritingIsFoundThroughACopyThatGoesWithTheIndex)
{
    QStringEncoder utf16(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    const QByteArray data =
        utf16(QString("<en-export><note><title>\u00E4</title></note><note/></en-export>"));
    auto index = indexOf(data);
    ASSERT_TRUE(index);
    ASSERT_EQ(index->notes().size(), 2u);
    EXPECT_EQ(index->notes()[0].title, QString("\u00E4"));
    EXPECT_EQ(index->path(), m_path);
    const QString copy = index->notesPath();
    EXPECT_NE(copy, m_path);
    EXPECT_TRUE(copy.startsWith(platform::StandardDirectories::temporary() + "/"));
    EXPECT_TRUE(read({{index, 0}}).contains("<title>\xC3\xA4</title>"));
    index = nullptr;
    EXPECT_FALSE(QFileInfo::exists(copy));
}

TEST_F(NotebookIndexTest, NotesWithinNotesAreNotesToo)
{
    const auto index = indexOf(
        test::document("<note><title>Outer</title><note><title>Inner</title></note></note>"));
    ASSERT_TRUE(index);
    EXPECT_EQ(index->notes().size(), 2u);
    EXPECT_EQ(index->notes()[0].title, "Outer");
}

TEST_F(NotebookIndexTest, AFileThatCannotBeReadHasNoIndex)
{
    EXPECT_FALSE(indexOf("<en-export><note>"));
    EXPECT_EQ(m_error.domain(), "NSXMLParserErrorDomain");
    m_error = {};
    EXPECT_FALSE(NotebookIndex::ofFile(m_folder.filePath("none"), &m_error));
    EXPECT_EQ(m_error.code(), 260);
    // Nothing of the attempts stays.
    EXPECT_TRUE(
        QDir(platform::StandardDirectories::temporary()).entryList({"Notebook-*"}).isEmpty());
}

TEST_F(NotebookIndexTest, ChosenNotesComeInTheOrderOfTheirChoiceWithinTheirFilesFrame)
{
    const auto index =
        indexOf(test::document("  <note>1</note>\n  <note>2</note>\n  <note>3</note>"));
    ASSERT_TRUE(index);
    const QByteArray frame = test::document("@");
    const auto expected = [&frame](const QByteArray& notes) {
        return QByteArray(frame).replace("@", "  " + notes);
    };
    EXPECT_EQ(read({{index, 1}}), expected("<note>2</note>"));
    EXPECT_EQ(read({{index, 2}, {index, 0}}), expected("<note>3</note><note>1</note>"));
    EXPECT_EQ(read({{index, 0}, {index, 0}}), expected("<note>1</note><note>1</note>"));
    const auto other =
        NotebookIndex::ofFile(m_folder.write("b.enex", test::document("<note>4</note>")));
    EXPECT_EQ(read({{index, 0}, {other, 0}, {index, 1}}),
              expected("<note>1</note><note>4</note><note>2</note>"));
}

TEST_F(NotebookIndexTest, NoNotesAreAFileWithoutAny)
{
    const QByteArray bytes = read({});
    EXPECT_TRUE(bytes.contains("<en-export></en-export>"));
}

TEST_F(NotebookIndexTest, AFileThatIsAnotherByNowIsAnError)
{
    const auto index = indexOf(test::document(test::note("a")));
    m_folder.write("a.enex", test::document(test::note("a") + "more"));
    EXPECT_EQ(read({{index, 0}}), "not opened");
    EXPECT_EQ(m_error.domain(), "EvernoteExportsErrorDomain");
    EXPECT_EQ(m_error.code(), 1);
    EXPECT_TRUE(m_error.localizedDescription().contains(m_path));
    QFile::remove(m_path);
    EXPECT_EQ(read({{index, 0}}), "not opened");
    EXPECT_EQ(m_error.code(), 260);
}

TEST_F(NotebookIndexTest, AFileThatChangesWhileItIsReadIsAnError)
{
    const auto index = indexOf(test::document(test::note("a", QByteArray(1000, 'x'))));
    SelectedNotesStream stream({{index, 0}});
    ASSERT_TRUE(stream.open());
    std::array<char, 100> buffer;
    ASSERT_GT(stream.read(buffer.data(), buffer.size(), &m_error), 0);
    QFile file(m_path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.resize(50));
    qint64 length = 0;
    do
        length = stream.read(buffer.data(), buffer.size(), &m_error);
    while (length > 0);
    EXPECT_EQ(length, -1);
    EXPECT_EQ(m_error.domain(), "EvernoteExportsErrorDomain");
}

} // namespace
