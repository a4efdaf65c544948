// SPDX-License-Identifier: MIT
#include "import/EvernoteXMLFileExportOperation.h"

#include "import/RunFixture.h"
#include "platform/defaults/UserDefaults.h"

namespace {

using ::testing::ElementsAre;

class EvernoteXMLFileExportOperationTest : public ImportRunTest {};

TEST_F(EvernoteXMLFileExportOperationTest, EveryNoteBecomesAnItemOfAFolderNamedAfterTheFile)
{
    const auto operation = importFile(text("My Notes.enex"), enex(note("One") + note("Two")));
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 My Notes.enex"), text("record"),
                                                text("record"), text("end")));
    const QList<QVariantMap> folders = records(text("Folder"));
    ASSERT_EQ(folders.size(), 1);
    EXPECT_EQ(folders[0].value(text("name")).toString(), text("My Notes"));
    EXPECT_EQ(folders[0].value(text("groupType")).toLongLong(), 70);
    EXPECT_TRUE(QFileInfo(filesPath() + text("/My Notes/One.qlnote")).isDir());

    const QStringList identifiers = folders[0].value(text("items")).toStringList();
    ASSERT_EQ(identifiers.size(), 2);
    QMap<QString, QString> names;
    for (const QVariantMap& item : records(text("Item"))) {
        EXPECT_EQ(item.value(text("folder")), folders[0].value(text("identifier")));
        names.insert(item.value(text("identifier")).toString(),
                     item.value(text("name")).toString());
    }
    EXPECT_EQ(names.value(identifiers[0]), text("One"));
    EXPECT_EQ(names.value(identifiers[1]), text("Two"));
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
    EXPECT_EQ(m_quillery->importedPaths, QStringList(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_EQ(operation->report().items, 2u);
}

TEST_F(EvernoteXMLFileExportOperationTest, TheRecordsOfTheRunItselfAreNotChanged)
{
    const auto operation = importFile(text("a.enex"), enex(note("One")));
    ASSERT_EQ(operation->notebookItemDicts().size(), 1);
    EXPECT_FALSE(operation->notebookItemDicts()[0]->contains(text("folder")));
}

TEST_F(EvernoteXMLFileExportOperationTest, TheLogTellsTheRun)
{
    const auto operation = importFile(text("a.enex"), enex(note("One") + note("Bad", "")));
    const QStringList lines = logLines();
    ASSERT_GE(lines.size(), 10);
    EXPECT_EQ(lines[1], text("Quillery Version 3.5.3 Evernote Version (null)"));
    EXPECT_EQ(lines[2], text("Exporting notes from ") + m_folder.filePath("a.enex"));
    EXPECT_EQ(lines[3], text("Exporting notes"));
    EXPECT_EQ(lines[4], text("Converting \"One\""));
    EXPECT_EQ(lines[5],
              text("Exported item: One (%1)")
                  .arg(operation->notebookItemDicts()[0]->value(text("identifier")).toString()));
    EXPECT_EQ(lines[6], text("Converting \"Bad\""));
    EXPECT_EQ(lines[7], text("Skipping \"Bad\""));
    EXPECT_TRUE(
        lines[8].startsWith(text("Error exporting item: Error Domain=NSXMLParserErrorDomain")));
    EXPECT_EQ(lines[9], text("*** Export ended for: ") + m_folder.filePath("a.enex"));
    EXPECT_FALSE(operation->logStream()->isOpen());
}

TEST_F(EvernoteXMLFileExportOperationTest, DebugModeLogsRecordsAndEvents)
{
    platform::UserDefaults::standard().setOverride(text("ExportDebug"), true);
    importFile(text("a.enex"), enex(note("One")));
    EXPECT_FALSE(logLines().filter(text("parser:didStartElement: note")).isEmpty());
    EXPECT_FALSE(logLines().filter(text("filename = \"One.qlnote\"")).isEmpty());
}

TEST_F(EvernoteXMLFileExportOperationTest, AFileWithoutNotesIsImportedAsAnEmptyFolder)
{
    const auto operation = importFile(text("Empty.enex"), enex({}));
    EXPECT_EQ(operation->noteCount(), 0u);
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 0 Empty.enex"), text("end")));
    ASSERT_EQ(records(text("Folder")).size(), 1);
    EXPECT_TRUE(records(text("Folder"))[0].contains(text("items")));
    EXPECT_TRUE(records(text("Folder"))[0].value(text("items")).toList().isEmpty());
    EXPECT_TRUE(records(text("Item")).isEmpty());
}

TEST_F(EvernoteXMLFileExportOperationTest, NotesAnywhereAreCounted)
{
    const auto operation =
        importFile(text("a.enex"), enex("<note><title>Outer</title><note/></note><x><note/></x>"));
    EXPECT_EQ(operation->noteCount(), 3u);
}

TEST_F(EvernoteXMLFileExportOperationTest, ASkippedNoteAdvancesTheProgressAndStandsInTheReport)
{
    const auto operation =
        importFile(text("a.enex"), enex(note("Good") + note("Bad", "") + note("Fine")));
    EXPECT_EQ(m_delegate.reports.count(text("record")), 3);
    EXPECT_EQ(records(text("Item")).size(), 2);
    const ImportReport& report = operation->report();
    EXPECT_EQ(report.notes, 3u);
    EXPECT_EQ(report.items, 2u);
    ASSERT_EQ(report.skipped.size(), 1u);
    EXPECT_EQ(report.skipped[0].title, text("Bad"));
    ASSERT_TRUE(report.skipped[0].error);
    EXPECT_EQ(report.skipped[0].error->domain(), text("NSXMLParserErrorDomain"));
}

TEST_F(EvernoteXMLFileExportOperationTest, ADelegateThatDoesNotCareForTheFileHearsTheRest)
{
    class Indifferent : public RecordingDelegate {
        void exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation& operation,
                                                           quint64 count, const QUrl& url) override
        {
            EvernoteExportOperationDelegate::exportOperationWillExportRecordsFromFileAtURL(
                operation, count, url);
        }
    };
    Indifferent delegate;
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setDelegate(&delegate);
    operation->setExportFileURL(
        QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One")))));
    run(operation);
    EXPECT_THAT(delegate.reports, ElementsAre(text("record"), text("end")));
}

TEST_F(EvernoteXMLFileExportOperationTest, CancellingTheRunAloneLetsTheConversionRunToItsEnd)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(
        QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One") + note("Two")))));
    m_delegate.onRecord = [&] {
        operation->cancel();
    };
    run(operation);
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    EXPECT_EQ(records(text("Item")).size(), 2);
}

TEST_F(EvernoteXMLFileExportOperationTest, CancellingTheConversionTooIsReportedAsACancellation)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(
        QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One") + note("Two")))));
    m_delegate.onRecord = [&] {
        operation->cancel();
        operation->parserQueue().cancelAllOperations();
    };
    run(operation);
    EXPECT_THAT(m_delegate.reports,
                ElementsAre(text("will 2 a.enex"), text("record"), text("cancel")));
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteXMLFileExportOperationTest, NotesOfOneTitleAreNumbered)
{
    importFile(text("a.enex"), enex(note("T").repeated(3) + note("T 1")));
    QStringList names;
    for (const QVariantMap& item : records(text("Item")))
        names += item.value(text("filename")).toString();
    names.sort();
    EXPECT_EQ(names, QStringList({text("T 1 1.qlnote"), text("T 1.qlnote"), text("T 2.qlnote"),
                                  text("T.qlnote")}));
}

TEST_F(EvernoteXMLFileExportOperationTest,
       ACharacterOfTheFileNameThatTheManifestCannotHoldIsReplaced)
{
    importFile(text("a\x01z.enex"), enex(note("One")));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    EXPECT_EQ(records(text("Folder"))[0].value(text("name")).toString(), text("a\uFFFDz"));
    const QString path = records(text("Item"))[0].value(text("absoluteFilename")).toString();
    EXPECT_EQ(path, filesPath() + text("/a\uFFFDz/One.qlnote"));
    EXPECT_TRUE(QFileInfo(path).isDir());
}

} // namespace
