// SPDX-License-Identifier: MIT
#include "import/EvernoteXMLExportOperation.h"

#include "import/ExportingEvernote.h"
#include "import/RunFixture.h"
#include "platform/defaults/UserDefaults.h"
#include "support/SmallVolume.h"

using platform::Error;

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EvernoteXMLExportOperationTest : public ImportRunTest {
protected:
    void SetUp() override
    {
        ImportRunTest::SetUp();
        m_run = std::make_shared<EvernoteXMLExportOperation>();
        prepare(*m_run);
        m_run->setEvernoteApp(m_evernote);
    }

    void runAll()
    {
        m_run->setNotebooks(m_evernote->notebooks());
        run(m_run);
    }

    [[nodiscard]] QString containerPath() const
    {
        return m_folder.filePath("Library/Containers/com.evernote.Evernote");
    }
    [[nodiscard]] QString importerPath() const
    {
        return containerPath() + text("/Data/Library/Application Support/EvernoteImporter");
    }
    [[nodiscard]] QMap<QString, QVariantMap> itemsByName() const
    {
        QMap<QString, QVariantMap> items;
        for (const QVariantMap& item : records(text("Item")))
            items.insert(item.value(text("name")).toString(), item);
        return items;
    }

    std::shared_ptr<ExportingEvernote> m_evernote = std::make_shared<ExportingEvernote>();
    std::shared_ptr<EvernoteXMLExportOperation> m_run;
};

TEST_F(EvernoteXMLExportOperationTest, EachNotebookIsExportedMovedAndConvertedInTurn)
{
    const auto first = m_evernote->addNotebook(text("One"));
    ExportingEvernote::addNote(*first, text("a"));
    ExportingEvernote::addNote(*first, text("b"));
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("Two")), text("c"));
    EXPECT_EQ(m_run->parserQueue(), nullptr);
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 One"), text("record"), text("record"),
                                                text("will 1 Two"), text("record"), text("end")));
    ASSERT_EQ(m_evernote->exports.size(), 2u);
    EXPECT_EQ(m_evernote->exports[0].titles, QStringList({text("a"), text("b")}));
    EXPECT_EQ(m_evernote->exports[0].format, platform::EvernoteApplication::ExportFormat::ENEX);
    EXPECT_EQ(m_evernote->exports[0].tags, platform::EvernoteApplication::ExportTags::Yes);
    const QMap<QString, QVariantMap> items = itemsByName();
    EXPECT_EQ(items.keys(), QStringList({text("a"), text("b"), text("c")}));
    EXPECT_EQ(items[text("a")].value(text("absoluteFilename")).toString(),
              filesPath() + text("/One/a.qlnote"));
    for (const QVariantMap& folder : records(text("Folder"))) {
        const bool isFirst = folder.value(text("name")) == text("One");
        EXPECT_EQ(folder.value(text("items")).toList().size(), isFirst ? 2 : 1);
        EXPECT_EQ(items[isFirst ? text("a") : text("c")].value(text("folder")),
                  folder.value(text("identifier")));
    }
    EXPECT_EQ(m_run->report().notes, 3u);
    EXPECT_EQ(m_run->report().items, 3u);
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
}

TEST_F(EvernoteXMLExportOperationTest, TheExportedFileStaysBesideTheNotesInTheNotebooksFolder)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("a:b")), text("n"));
    runAll();
    EXPECT_TRUE(QFileInfo(filesPath() + text("/a-b/XML/a-b.enex")).isFile());
    EXPECT_TRUE(QFileInfo(filesPath() + text("/a-b/n.qlnote")).isDir());
}

TEST_F(EvernoteXMLExportOperationTest, WithoutAContainerTheExportGoesToTheTemporaryDirectory)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    runAll();
    EXPECT_EQ(m_evernote->exports[0].to, m_folder.filePath("temporary/One.enex"));
    EXPECT_EQ(QDir(m_folder.filePath("temporary"))
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList(text("Evernote")));
}

TEST_F(EvernoteXMLExportOperationTest, AnEvernoteInAContainerExportsIntoItAndTheFolderIsRemoved)
{
    QDir().mkpath(containerPath());
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("Two")), text("n"));
    runAll();
    EXPECT_EQ(m_evernote->exports[0].to, importerPath() + text("/One.enex"));
    EXPECT_EQ(m_evernote->exports[1].to, importerPath() + text("/Two.enex"));
    EXPECT_FALSE(QFileInfo::exists(importerPath()));
    EXPECT_TRUE(QFileInfo::exists(QFileInfo(importerPath()).path()));
    EXPECT_EQ(m_run->report().items, 2u);
}

TEST_F(EvernoteXMLExportOperationTest, AnExportIsMovedToAnotherFileSystem)
{
    const test::SmallVolume volume(8 * 1024 * 1024);
    if (!volume.isMounted())
        GTEST_SKIP() << "no file system can be mounted here";
    RunDirectories places = directories();
    places.library = volume.path();
    m_run->setRunDirectories(places);
    QDir().mkpath(volume.filePath(text("Containers/com.evernote.Evernote")));
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    runAll();
    EXPECT_TRUE(m_evernote->exports[0].to.startsWith(volume.path()));
    EXPECT_TRUE(QFileInfo(filesPath() + text("/One/XML/One.enex")).isFile());
    EXPECT_EQ(m_run->report().items, 1u);
}

TEST_F(EvernoteXMLExportOperationTest, AContainerThatTakesNoFolderEndsTheRun)
{
    m_folder.write(text("Library/Containers/com.evernote.Evernote/Data"), "a file in the way");
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    runAll();
    ASSERT_EQ(m_delegate.errors.size(), 1u);
    EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSCocoaErrorDomain"));
    EXPECT_EQ(logLines().filter(text("Cannot create directory: ")).size(), 1);
    EXPECT_TRUE(m_evernote->exports.empty());
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteXMLExportOperationTest, WithoutATemporaryDirectoryThereIsNowhereToExportTo)
{
    m_bridge->installed = {{platform::quillery::storeIdentifier, m_quillery}};
    RunDirectories places = directories();
    places.temporary.clear();
    m_run->setRunDirectories(places);
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 1 One"), text("error 10004")));
    EXPECT_TRUE(m_evernote->exports.empty());
}

TEST_F(EvernoteXMLExportOperationTest, AFolderForTheFileThatCannotBeMadeEndsTheRun)
{
    const auto notebook = m_evernote->addNotebook(text("One"));
    ExportingEvernote::addNote(*notebook, text("n"));
    notebook->onCount = [this] {
        m_folder.write(text("temporary/Evernote/One/XML"), "a file in the way");
    };
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("Two")), text("m"));
    runAll();
    ASSERT_EQ(m_delegate.errors.size(), 1u);
    EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSCocoaErrorDomain"));
    EXPECT_TRUE(m_evernote->exports.empty());
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    // Those of the notebook that was not begun count, too.
    EXPECT_EQ(m_run->report().notes, 2u);
    EXPECT_EQ(m_run->report().items, 0u);
}

TEST_F(EvernoteXMLExportOperationTest, AnExportThatLeavesNoFileEndsTheRunWithTheFailedMove)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    m_evernote->writes = false;
    runAll();
    ASSERT_EQ(m_delegate.errors.size(), 1u);
    EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSCocoaErrorDomain"));
    EXPECT_EQ(m_delegate.errors[0]->code(), 4);
    EXPECT_EQ(logLines()
                  .filter(text("Error moving exported XML: Error Domain=NSCocoaErrorDomain Code=4"))
                  .size(),
              1);
    EXPECT_THAT(m_quillery->calls, IsEmpty());
}

TEST_F(EvernoteXMLExportOperationTest, AnExportThatSaysWhyItFailedIsQuoted)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    m_evernote->writes = false;
    m_evernote->failure = Error(text("Own"), 7, text("The disk of the application is full."));
    runAll();
    ASSERT_EQ(m_delegate.errors.size(), 1u);
    EXPECT_EQ(m_delegate.errors[0]->code(), 4);
    EXPECT_EQ(m_delegate.errors[0]->localizedDescription(),
              text("The disk of the application is full."));
    EXPECT_EQ(m_run->report().notes, 1u);
    EXPECT_EQ(m_run->report().items, 0u);
}

TEST_F(EvernoteXMLExportOperationTest, AFileThatIsThereCountsWhateverTheExportSays)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    m_evernote->failure = Error(text("Own"), 7, text("Something was odd."));
    runAll();
    EXPECT_EQ(m_run->report().items, 1u);
    ASSERT_EQ(m_run->report().warnings.size(), 1u);
    EXPECT_EQ(m_run->report().warnings[0].text, text("Something was odd."));
}

TEST_F(EvernoteXMLExportOperationTest, NamesAreFreeInBothFolders)
{
    m_folder.write(text("temporary/One.enex"), "somebody else's");
    const auto notebook = m_evernote->addNotebook(text("One"));
    ExportingEvernote::addNote(*notebook, text("n"));
    notebook->onCount = [this] {
        m_folder.write(text("temporary/Evernote/One/XML/One.enex"), "");
    };
    runAll();
    EXPECT_EQ(m_evernote->exports[0].to, m_folder.filePath("temporary/One 1.enex"));
    EXPECT_EQ(m_folder.read(text("temporary/One.enex")), "somebody else's");
    EXPECT_TRUE(QFileInfo(filesPath() + text("/One/XML/One 1.enex")).isFile());
    EXPECT_EQ(m_run->report().items, 1u);
}

TEST_F(EvernoteXMLExportOperationTest, AnEmptyNotebookIsAnEmptyFolderAndTheRunGoesOn)
{
    m_evernote->addNotebook(text("Empty"));
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("Full")), text("n"));
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 0 Empty"), text("will 1 Full"),
                                                text("record"), text("end")));
    for (const QVariantMap& folder : records(text("Folder"))) {
        ASSERT_TRUE(folder.contains(text("items")));
        EXPECT_EQ(folder.value(text("items")).toList().isEmpty(),
                  folder.value(text("name")) == text("Empty"));
    }
}

TEST_F(EvernoteXMLExportOperationTest, ANoteThatCannotBeConvertedIsCountedAndReported)
{
    const auto notebook = m_evernote->addNotebook(text("One"));
    ExportingEvernote::addNote(*notebook, text("bad"))->enex =
        "<note><title>bad</title><content></content></note>";
    ExportingEvernote::addNote(*notebook, text("good"));
    runAll();
    EXPECT_THAT(m_delegate.reports,
                ElementsAre(text("will 2 One"), text("record"), text("record"), text("end")));
    ASSERT_EQ(m_run->report().skipped.size(), 1u);
    EXPECT_EQ(m_run->report().skipped[0].title, text("bad"));
    EXPECT_EQ(m_run->report().items, 1u);
}

TEST_F(EvernoteXMLExportOperationTest, AFileThatCannotBeParsedToItsEndEndsTheRun)
{
    const auto notebook = m_evernote->addNotebook(text("One"));
    ExportingEvernote::addNote(*notebook, text("n"));
    ExportingEvernote::addNote(*notebook, text("m"))->enex = "<note><title>m";
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("Two")), text("o"));
    runAll();
    // Once for what the reader reports, and once for its failure.
    ASSERT_EQ(m_delegate.errors.size(), 2u);
    EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_EQ(m_evernote->exports.size(), 1u);
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteXMLExportOperationTest, AParseThatEndsTwiceIsReportedTwice)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"))->enex =
        "<note><title>n</title><resource><data>AA==</data></resource></note>";
    runAll();
    EXPECT_EQ(m_delegate.reports.count(text("error 1003")), 1);
    EXPECT_EQ(m_delegate.errors.size(), 2u);
}

TEST_F(EvernoteXMLExportOperationTest, NotesThatTheExportLeavesOutAreReportedByTheirTitles)
{
    const auto notebook = m_evernote->addNotebook(text("One"));
    ExportingEvernote::addNote(*notebook, text("same"));
    ExportingEvernote::addNote(*notebook, text("lost"))->enex.clear();
    ExportingEvernote::addNote(*notebook, text("same"))->enex.clear();
    ExportingEvernote::addNote(*notebook, text("last"));
    runAll();
    const ImportReport& report = m_run->report();
    EXPECT_EQ(report.notes, 4u);
    EXPECT_EQ(report.items, 2u);
    ASSERT_EQ(report.skipped.size(), 2u);
    EXPECT_EQ(report.skipped[0].title, text("lost"));
    EXPECT_EQ(report.skipped[1].title, text("same"));
    EXPECT_EQ(report.skipped[0].error->localizedDescription(),
              text("Evernote did not export this note."));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
}

TEST_F(EvernoteXMLExportOperationTest, NotesBeyondThoseAskedForCount)
{
    const auto notebook = m_evernote->addNotebook(text("One"));
    const auto note = ExportingEvernote::addNote(*notebook, text("n"));
    note->enex += note->enex;
    runAll();
    EXPECT_EQ(m_run->report().notes, 2u);
    EXPECT_EQ(m_run->report().items, 2u);
}

TEST_F(EvernoteXMLExportOperationTest, AnApplicationThatDoesNotGiveItsNotesEndsTheRun)
{
    m_evernote->addNotebook(text("One"));
    m_evernote->silence = Error(text("Own"), 9, text("gone"));
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 0 One"), text("error 9")));
    EXPECT_TRUE(m_evernote->exports.empty());
}

TEST_F(EvernoteXMLExportOperationTest, ACancelDuringAConversionEndsTheRun)
{
    const auto notebook = m_evernote->addNotebook(text("One"));
    for (int number = 0; number < 50; ++number)
        ExportingEvernote::addNote(*notebook, QString::number(number));
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("Two")), text("n"));
    m_delegate.onRecord = [this] {
        m_run->cancel();
    };
    runAll();
    EXPECT_THAT(m_delegate.reports,
                ElementsAre(text("will 50 One"), text("record"), text("cancel")));
    EXPECT_EQ(m_evernote->exports.size(), 1u);
    // What there is so far stays.
    EXPECT_TRUE(QFileInfo(filesPath() + text("/One/XML/One.enex")).isFile());
    EXPECT_TRUE(QFileInfo(filesPath() + text("/One/0.qlnote")).isDir());
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_EQ(m_run->report().notes, 51u);
}

TEST_F(EvernoteXMLExportOperationTest, ACancelDuringTheFirstExportStopsNothing)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    m_evernote->onExport = [this](const QString&) {
        m_run->cancel();
    };
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 1 One"), text("record"), text("end")));
    EXPECT_TRUE(m_run->isCancelled());
}

TEST_F(EvernoteXMLExportOperationTest, AFailureAfterACancelIsReportedAsTheCancellation)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    m_evernote->onExport = [this](const QString&) {
        m_run->cancel();
    };
    m_evernote->writes = false;
    runAll();
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 1 One"), text("cancel")));
}

TEST_F(EvernoteXMLExportOperationTest, DebugModeLogsBothPathsAndTheRecords)
{
    platform::UserDefaults::standard().setOverride(text("ExportDebug"), true);
    m_run = std::make_shared<EvernoteXMLExportOperation>();
    prepare(*m_run);
    m_run->setEvernoteApp(m_evernote);
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    runAll();
    const QStringList lines = logLines();
    EXPECT_TRUE(
        lines.contains(text("Exporting ENEX to: ") + m_folder.filePath("temporary/One.enex")));
    EXPECT_TRUE(lines.contains(text("Moving exported file to: ") + filesPath() +
                               text("/One/XML/One.enex")));
    EXPECT_TRUE(lines.contains(text("parser:didStartElement: note")));
    EXPECT_EQ(lines.filter(text("filename = \"n.qlnote\"")).size(), 1);
}

TEST_F(EvernoteXMLExportOperationTest, TheLogTellsTheRun)
{
    ExportingEvernote::addNote(*m_evernote->addNotebook(text("One")), text("n"));
    runAll();
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(lines[1], text("Quillery Version 3.5.3 Evernote Version 7.14"));
    EXPECT_EQ(lines[2], text("*** Export started for notebook: One"));
    EXPECT_EQ(lines[3], text("Exporting notes"));
    EXPECT_EQ(lines[4], text("Converting \"n\""));
    EXPECT_TRUE(lines[5].startsWith(text("Exported item: n (")));
    EXPECT_EQ(lines[6], text("*** Export ended for notebook: One"));
}

} // namespace
