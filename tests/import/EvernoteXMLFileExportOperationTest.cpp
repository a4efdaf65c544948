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
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 My Notes.enex"), text("record"), text("record"), text("end")));
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
        names.insert(item.value(text("identifier")).toString(), item.value(text("name")).toString());
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
    EXPECT_EQ(lines[5], text("Exported item: One (%1)").arg(operation->notebookItemDicts()[0]->value(text("identifier")).toString()));
    EXPECT_EQ(lines[6], text("Converting \"Bad\""));
    EXPECT_EQ(lines[7], text("Skipping \"Bad\""));
    EXPECT_TRUE(lines[8].startsWith(text("Error exporting item: Error Domain=NSXMLParserErrorDomain")));
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
    const auto operation = importFile(text("a.enex"), enex("<note><title>Outer</title><note/></note><x><note/></x>"));
    EXPECT_EQ(operation->noteCount(), 3u);
}

TEST_F(EvernoteXMLFileExportOperationTest, ASkippedNoteAdvancesTheProgressAndStandsInTheReport)
{
    const auto operation = importFile(text("a.enex"), enex(note("Good") + note("Bad", "") + note("Fine")));
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
        void exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation& operation, quint64 count, const QUrl& url) override
        {
            EvernoteExportOperationDelegate::exportOperationWillExportRecordsFromFileAtURL(operation, count, url);
        }
    };
    Indifferent delegate;
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setDelegate(&delegate);
    operation->setExportFileURL(QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One")))));
    run(operation);
    EXPECT_THAT(delegate.reports, ElementsAre(text("record"), text("end")));
}

TEST_F(EvernoteXMLFileExportOperationTest, MalformedXmlIsFoundByTheCountAndNothingIsConverted)
{
    QByteArray notes;
    for (int number = 0; number < 500; ++number)
        notes += note("Note " + QByteArray::number(number));
    const auto operation = importFile(text("a.enex"), enex(notes + "\n\n<note><title>Broken</note>"));
    ASSERT_EQ(m_delegate.reports.size(), 1);
    EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSXMLParserErrorDomain"));
    EXPECT_TRUE(m_delegate.errors[0]->localizedDescription().contains(text("line 4")))
        << qPrintable(m_delegate.errors[0]->localizedDescription());
    EXPECT_TRUE(m_delegate.errors[0]->localizedDescription().contains(text("column")));
    EXPECT_EQ(logLines().filter(text("Error counting notes: ")).size(), 1);
    EXPECT_TRUE(QDir(filesPath()).isEmpty());
    EXPECT_TRUE(m_quillery->calls.isEmpty());
}

TEST_F(EvernoteXMLFileExportOperationTest, FilesThatCannotBeReadEndWithOneErrorThatNamesThem)
{
    for (const QString& path : {text("/nowhere/Notes.enex"), m_folder.path(), m_folder.write(text("empty.enex"), "")}) {
        m_delegate.reports.clear();
        m_delegate.errors.clear();
        const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
        prepare(*operation);
        operation->setExportFileURL(QUrl::fromLocalFile(path));
        run(operation);
        ASSERT_EQ(m_delegate.reports.size(), 1) << qPrintable(path);
        EXPECT_EQ(m_delegate.errors[0]->domain(), text("NSXMLParserErrorDomain")) << qPrintable(path);
        EXPECT_EQ(logLines().filter(text("Error counting notes: ")).size(), 1);
        EXPECT_TRUE(QDir(filesPath()).isEmpty());
    }
}

TEST_F(EvernoteXMLFileExportOperationTest, BrokenFilesOfEveryKindEndWithAnError)
{
    for (const QByteArray& broken : QByteArrayList{"", "plain text", "\x89PNG\r\n", "<en-export><note>", "<en-export/>tail", "<a/><b/>",
                                                   "<en-export>\xFF\xFE</en-export>", "<en-export>&undeclared;</en-export>"}) {
        m_delegate.reports.clear();
        importFile(text("a.enex"), broken);
        ASSERT_EQ(m_delegate.reports.size(), 1) << broken.constData();
        EXPECT_TRUE(m_delegate.reports[0].startsWith(text("error "))) << broken.constData();
        EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    }
}

TEST_F(EvernoteXMLFileExportOperationTest, AUrlThatIsNoFileEndsWithAnError)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(QUrl(text("http://example.org/a.enex")));
    run(operation);
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 1001")));
}

TEST_F(EvernoteXMLFileExportOperationTest, AFolderThatCannotBeMadeForTheFileEndsTheRun)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    const QString path = m_folder.write(text("Evernote.enex"), enex(note("One")));
    operation->setExportFileURL(QUrl::fromLocalFile(path));
    RunDirectories unusable = directories();
    unusable.temporary = m_folder.write(text("a file"), "");
    operation->setRunDirectories(unusable);
    run(operation);
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10004")));
    EXPECT_EQ(logLines().filter(text("Unable to create notebook directory ")).size(), 1);
    EXPECT_TRUE(m_quillery->calls.isEmpty());
}

TEST_F(EvernoteXMLFileExportOperationTest, AnUnknownEncodingEndsTheConversionWithTwoReports)
{
    importFile(text("a.enex"), enex(note("One") + "<note><resource><data encoding=\"hex\">00</data></resource></note>"));
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 a.enex"), text("record"), text("error 1003"), text("error 512")));
    EXPECT_EQ(m_delegate.errors[0]->localizedDescription(), text("Cannot parse \"hex\" data."));
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteXMLFileExportOperationTest, AnExceptionInOneNoteSkipsThatNoteOnly)
{
    const auto operation
        = importFile(text("a.enex"), enex(note("Bad", "<en-note>***QUILLERYATTACHMENT x</en-note>") + note("Good")));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    ASSERT_EQ(operation->report().skipped.size(), 1u);
    EXPECT_EQ(operation->report().skipped[0].error->code(), 1004);
    EXPECT_EQ(operation->report().items, 1u);
}

TEST_F(EvernoteXMLFileExportOperationTest, CancellingTheRunAloneLetsTheConversionRunToItsEnd)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One") + note("Two")))));
    m_delegate.onRecord = [&] { operation->cancel(); };
    run(operation);
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    EXPECT_EQ(records(text("Item")).size(), 2);
}

TEST_F(EvernoteXMLFileExportOperationTest, CancellingTheConversionTooIsReportedAsACancellation)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One") + note("Two")))));
    m_delegate.onRecord = [&] {
        operation->cancel();
        operation->parserQueue().cancelAllOperations();
    };
    run(operation);
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 a.enex"), text("record"), text("cancel")));
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteXMLFileExportOperationTest, TheFilesFolderRemovedDuringTheRunIsNeverSilent)
{
    const auto operation = std::make_shared<EvernoteXMLFileExportOperation>();
    prepare(*operation);
    operation->setExportFileURL(QUrl::fromLocalFile(m_folder.write(text("a.enex"), enex(note("One") + note("Two") + note("Three")))));
    m_delegate.onRecord = [&] { QDir(filesPath() + text("/a")).removeRecursively(); };
    run(operation);
    EXPECT_EQ(operation->report().skipped.size(), 2u);
    EXPECT_TRUE(operation->report().skipped[0].error);
}

} // namespace
