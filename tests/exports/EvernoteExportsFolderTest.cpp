// SPDX-License-Identifier: MIT
#include "exports/EvernoteExportsFolder.h"

#include "exports/EnexDocuments.h"
#include "exports/SummaryCache.h"
#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"
#include "resources/Resources.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QFileInfo>

#include <thread>

using platform::Error;
using platform::EvernoteApplication;

namespace {

using ::testing::ElementsAre;

class EvernoteExportsFolderTest : public testing::Test {
protected:
    void SetUp() override { registerResources(); }
    void TearDown() override { platform::UserDefaults::standard().clearOverrides(); }

    QString write(const char* name, const QByteArray& notes)
    {
        return m_folder.write(QString::fromUtf8(name), test::document(notes));
    }

    std::vector<std::shared_ptr<platform::EvernoteNote>> notesOf(std::size_t notebook)
    {
        return m_exports.notebooks()[notebook]->notes();
    }

    bool exportEnex(const std::vector<std::shared_ptr<platform::EvernoteNote>>& notes,
                    EvernoteApplication::ExportTags tags = EvernoteApplication::ExportTags::Yes)
    {
        return m_exports.exportNotes(notes, m_out.filePath("out.enex"), tags,
                                     EvernoteApplication::ExportFormat::ENEX, &m_error);
    }

    bool exportPages(const std::vector<std::shared_ptr<platform::EvernoteNote>>& notes)
    {
        return m_exports.exportNotes(notes, m_out.filePath("out.html"),
                                     EvernoteApplication::ExportTags::No,
                                     EvernoteApplication::ExportFormat::HTML, &m_error);
    }

    test::ScratchFolder m_folder;
    test::ScratchFolder m_out;
    EvernoteExportsFolder m_exports{m_folder.path()};
    Error m_error;
};

TEST_F(EvernoteExportsFolderTest, EveryFileIsANotebookWithItsNotes)
{
    write("b.enex", test::note("one") + test::note("two"));
    write("Stack/a.enex", "");
    const auto notebooks = m_exports.notebooks();
    ASSERT_EQ(notebooks.size(), 2u);
    EXPECT_EQ(notebooks[0]->name(), "b");
    EXPECT_EQ(notebooks[0]->numberOfNotes(), 2u);
    EXPECT_EQ(notebooks[0]->problem(), std::nullopt);
    EXPECT_EQ(notebooks[1]->name(), "Stack/a");
    EXPECT_EQ(notebooks[1]->numberOfNotes(), 0u);
    const auto notes = notebooks[0]->notes();
    ASSERT_EQ(notes.size(), 2u);
    EXPECT_EQ(notes[1]->title(), "two");
    EXPECT_TRUE(notes[1]->noteLink().isEmpty());
    EXPECT_EQ(m_exports.lastError(), std::nullopt);
}

TEST_F(EvernoteExportsFolderTest, EachListingLooksAnew)
{
    EXPECT_TRUE(m_exports.notebooks().empty());
    const QString path = write("a.enex", test::note("one"));
    const auto listed = m_exports.notebooks();
    ASSERT_EQ(listed.size(), 1u);
    EXPECT_EQ(listed[0]->numberOfNotes(), 1u);
    write("a.enex", test::note("one") + test::note("two"));
    EXPECT_EQ(m_exports.notebooks()[0]->numberOfNotes(), 2u);
    // One that was listed before knows of the change as well.
    EXPECT_EQ(listed[0]->numberOfNotes(), 2u);
    EXPECT_EQ(listed[0]->notes().size(), 2u);
    QFile::remove(path);
    EXPECT_TRUE(m_exports.notebooks().empty());
    EXPECT_TRUE(listed[0]->problem());
}

TEST_F(EvernoteExportsFolderTest, FilesThatCannotBeReadAreListedWithTheReason)
{
    m_folder.write("a.enex", "no XML");
    m_folder.write("b.enex", "<en-export><note></note><note>");
    QFile::link("nowhere", m_folder.filePath("c.enex"));
    write("d.enex", test::note("good"));
    const auto notebooks = m_exports.notebooks();
    ASSERT_EQ(notebooks.size(), 4u);
    for (std::size_t number = 0; number < 3; ++number) {
        ASSERT_TRUE(notebooks[number]->problem()) << number;
        EXPECT_TRUE(notebooks[number]->notes().empty());
        EXPECT_EQ(m_exports.lastError(), notebooks[number]->problem()) << number;
    }
    EXPECT_EQ(notebooks[1]->numberOfNotes(), 1u);
    EXPECT_FALSE(notebooks[3]->problem());
    EXPECT_EQ(notebooks[3]->notes().size(), 1u);
    EXPECT_EQ(m_exports.lastError(), std::nullopt);
}

TEST_F(EvernoteExportsFolderTest, CountsAreRememberedForTheNextTime)
{
    const QString path = write("a.enex", test::note("one"));
    EXPECT_EQ(m_exports.notebooks()[0]->numberOfNotes(), 1u);
    const auto identity = FileIdentity::ofFile(path);
    const SummaryCache cache(SummaryCache::pathForFolder(m_folder.path()));
    ASSERT_TRUE(cache.summary(path, *identity));
    EXPECT_EQ(cache.summary(path, *identity)->notes, 1u);
    // What is remembered is believed for as long as the file stays.
    SummaryCache forged(SummaryCache::pathForFolder(m_folder.path()));
    forged.insert(path, *identity, {7, {}, {}, {}});
    forged.save({path});
    EXPECT_EQ(m_exports.notebooks()[0]->numberOfNotes(), 7u);
}

TEST_F(EvernoteExportsFolderTest, OnlyNotebooksThatSomebodyStillHasAreRead)
{
    const QString kept = write("kept.enex", test::note("one"));
    const QString dropped = write("dropped.enex", test::note("two"));
    auto notebooks = m_exports.notebooks();
    ASSERT_EQ(notebooks[0]->name(), "dropped");
    notebooks.erase(notebooks.begin());
    EXPECT_EQ(notebooks[0]->numberOfNotes(), 1u);
    const SummaryCache cache(SummaryCache::pathForFolder(m_folder.path()));
    EXPECT_TRUE(cache.summary(kept, *FileIdentity::ofFile(kept)));
    EXPECT_FALSE(cache.summary(dropped, *FileIdentity::ofFile(dropped)));
}

TEST_F(EvernoteExportsFolderTest, ManyNotebooksAreCountedFromSeveralThreadsAtOnce)
{
    for (int number = 0; number < 60; ++number)
        write(qPrintable(QString::number(number) + ".enex"), test::note("n").repeated(number % 7));
    const auto notebooks = m_exports.notebooks();
    std::vector<std::thread> threads;
    std::atomic<quint64> sum = 0;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (const auto& notebook : notebooks)
                sum += notebook->numberOfNotes();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    quint64 expected = 0;
    for (int number = 0; number < 60; ++number)
        expected += static_cast<quint64>(number % 7);
    EXPECT_EQ(sum, 4 * expected);
}

TEST_F(EvernoteExportsFolderTest, TheVersionIsTheLatestOfTheHeaders)
{
    EXPECT_EQ(m_exports.version(), "5.2.0");
    const auto writeVersion = [this](const char* name, const char* version) {
        m_folder.write(QString::fromUtf8(name), test::document("", version));
    };
    // None that is too old keeps anybody from a file that can be read.
    writeVersion("a.enex", "4.x");
    writeVersion("b.enex", "Evernote Mac 3.0");
    EXPECT_EQ(m_exports.version(), "5.2.0");
    writeVersion("c.enex", "6.x");
    EXPECT_EQ(m_exports.version(), "6.0");
    writeVersion("d.enex", "Evernote Mac 7.14 (458265)");
    EXPECT_EQ(m_exports.version(), "7.14");
    writeVersion("e.enex", "10.104.3");
    EXPECT_EQ(m_exports.version(), "10.104.3");
    writeVersion("f.enex", "unknown");
    writeVersion("g.enex", "99999999999999999999.1");
    m_folder.write("h.enex", "no XML");
    EXPECT_EQ(m_exports.version(), "10.104.3");
}

TEST_F(EvernoteExportsFolderTest, TheFolderOfTheSettingsCountsElseThatInTheDocuments)
{
    EXPECT_EQ(EvernoteExportsFolder::directoryOfSettings(),
              platform::StandardDirectories::documents() + "/Evernote");
    platform::UserDefaults::standard().setOverride("EvernoteExportsFolder", "/exports");
    EXPECT_EQ(EvernoteExportsFolder::directoryOfSettings(), "/exports");
    platform::UserDefaults::standard().setOverride("EvernoteExportsFolder", "");
    EXPECT_EQ(EvernoteExportsFolder::directoryOfSettings(),
              EvernoteExportsFolder::defaultDirectory());
}

TEST_F(EvernoteExportsFolderTest, AnEnexExportIsClassicAndCompact)
{
    write("a.enex", "  <note>\n    <title>T</title>\n    <created>20240102T030405Z</created>\n"
                    "    <tag>one</tag>\n    <note-attributes>\n      <author>A</author>\n"
                    "      <source-url>u</source-url>\n    </note-attributes>\n"
                    "    <content>\n      <![CDATA[<en-note>x</en-note>]]>\n    </content>\n"
                    "    <unheard-of>y</unheard-of>\n  </note>\n");
    ASSERT_TRUE(exportEnex(notesOf(0))) << qPrintable(m_error.localizedDescription());
    const QByteArray bytes = m_out.read("out.enex");
    EXPECT_TRUE(bytes.contains(
        "<note><title>T</title><created>20240102T030405Z</created><tag>one</tag><note-attributes>"
        "<source-url>u</source-url></note-attributes><content><![CDATA[<en-note>x</en-note>]]>"
        "</content></note>"))
        << bytes.toStdString();
    EXPECT_FALSE(bytes.contains("unheard-of"));
    EXPECT_TRUE(m_exports.lastExportWarnings().isEmpty());
}

TEST_F(EvernoteExportsFolderTest, AnyChoiceOfNotesIsExportedInItsOrder)
{
    write("a.enex", test::note("1") + test::note("2") + test::note("3"));
    write("b.enex", test::note("4"));
    auto notes = notesOf(0);
    notes.erase(notes.begin() + 1);
    std::swap(notes[0], notes[1]);
    notes.push_back(notesOf(1)[0]);
    ASSERT_TRUE(exportEnex(notes));
    const QByteArray bytes = m_out.read("out.enex");
    EXPECT_EQ(bytes.count("<note>"), 3);
    EXPECT_LT(bytes.indexOf("<title>3"), bytes.indexOf("<title>1"));
    EXPECT_LT(bytes.indexOf("<title>1"), bytes.indexOf("<title>4"));
}

TEST_F(EvernoteExportsFolderTest, NoNotesAreAFileWithoutAny)
{
    ASSERT_TRUE(exportEnex({}));
    EXPECT_TRUE(m_out.read("out.enex").contains("<en-export></en-export>"));
}

TEST_F(EvernoteExportsFolderTest, TagsAreLeftOutWhereTheyAreNotWanted)
{
    write("a.enex", test::note("1", "x",
                               "<tag>one</tag><tag>two</tag><created>20240102T030405Z"
                               "</created>"));
    ASSERT_TRUE(exportEnex(notesOf(0), EvernoteApplication::ExportTags::No));
    const QByteArray bytes = m_out.read("out.enex");
    EXPECT_FALSE(bytes.contains("tag>"));
    EXPECT_FALSE(bytes.contains("one"));
    EXPECT_TRUE(bytes.contains("<created>20240102T030405Z</created>"));
}

TEST_F(EvernoteExportsFolderTest, AnExportLeavesNothingHalfDone)
{
    const QString path = write("a.enex", test::note("1"));
    const auto notes = notesOf(0);
    write("a.enex", test::note("1") + "more");
    EXPECT_FALSE(exportEnex(notes));
    EXPECT_EQ(m_error.domain(), "EvernoteExportsErrorDomain");
    EXPECT_EQ(m_exports.lastError(), m_error);
    EXPECT_FALSE(exportPages(notes));
    EXPECT_TRUE(m_out.tree().isEmpty());
    EXPECT_TRUE(m_error.localizedDescription().contains(path));
}

TEST_F(EvernoteExportsFolderTest, WhatIsThereAlreadyStays)
{
    write("a.enex", test::note("1"));
    m_out.write("out.enex", "somebody else's");
    m_out.write("out.html/x", "somebody else's");
    EXPECT_FALSE(exportEnex(notesOf(0)));
    EXPECT_FALSE(exportPages(notesOf(0)));
    EXPECT_EQ(m_out.tree(), QStringList({"out.enex", "out.html/", "out.html/x"}));
    EXPECT_EQ(m_out.read("out.enex"), "somebody else's");
}

TEST_F(EvernoteExportsFolderTest, AFolderThatTakesNothingIsAnError)
{
    write("a.enex", test::note("1"));
    EXPECT_FALSE(m_exports.exportNotes(notesOf(0), "/proc/none/out.enex",
                                       EvernoteApplication::ExportTags::Yes,
                                       EvernoteApplication::ExportFormat::ENEX, &m_error));
    EXPECT_FALSE(m_error.localizedDescription().isEmpty());
    EXPECT_FALSE(m_exports.exportNotes(notesOf(0), "/proc/none/out.html",
                                       EvernoteApplication::ExportTags::Yes,
                                       EvernoteApplication::ExportFormat::HTML, &m_error));
}

TEST_F(EvernoteExportsFolderTest, NotesOfAnotherApplicationAreRefused)
{
    struct Foreign : platform::EvernoteNote {
        QString title() override { return {}; }
        QStringList tags() override { return {}; }
        QDateTime creationDate() override { return {}; }
        QDateTime modificationDate() override { return {}; }
        QString noteLink() override { return {}; }
        QString sourceURL() override { return {}; }
    };
    EXPECT_FALSE(exportEnex({std::make_shared<Foreign>()}));
    EXPECT_EQ(m_error.code(), 2);
    EXPECT_FALSE(exportEnex({nullptr}));
    EXPECT_TRUE(m_out.tree().isEmpty());
}

TEST_F(EvernoteExportsFolderTest, PagesOfSeveralNotesLieSideBySide)
{
    write("a.enex", test::note("same") + test::note("same") + test::note("other"));
    ASSERT_TRUE(exportPages(notesOf(0)));
    EXPECT_EQ(m_out.tree(), QStringList({"out.html/", "out.html/other.html", "out.html/same 1.html",
                                         "out.html/same.html"}));
}

TEST_F(EvernoteExportsFolderTest, WhatAPageCannotShowIsToldAfterItsExport)
{
    write("a.enex",
          test::note("1", "<en-crypt>c2VjcmV0</en-crypt>" + test::media("lost", "image/png")) +
              test::note("2"));
    const auto notes = notesOf(0);
    ASSERT_TRUE(exportPages({notes[0]}));
    EXPECT_EQ(m_exports.lastExportWarnings().size(), 2);
    ASSERT_TRUE(m_exports.exportNotes({notes[1]}, m_out.filePath("2.html"),
                                      EvernoteApplication::ExportTags::No,
                                      EvernoteApplication::ExportFormat::HTML));
    EXPECT_TRUE(m_exports.lastExportWarnings().isEmpty());
}

TEST_F(EvernoteExportsFolderTest, ANoteWhoseBodyCannotBeReadIsNotExportedAsAPage)
{
    write("a.enex", "<note><title>1</title><content><p>no CDATA</p></content></note>");
    EXPECT_FALSE(exportPages(notesOf(0)));
    EXPECT_FALSE(m_error.localizedDescription().isEmpty());
    EXPECT_TRUE(m_out.tree().isEmpty());
}

TEST_F(EvernoteExportsFolderTest, NoScratchFilesStay)
{
    write("a.enex", test::note("1"));
    ASSERT_TRUE(exportPages(notesOf(0)));
    EXPECT_TRUE(QDir(platform::StandardDirectories::temporary())
                    .entryList({"Note-*", "Notebook-*"})
                    .isEmpty());
}

} // namespace
