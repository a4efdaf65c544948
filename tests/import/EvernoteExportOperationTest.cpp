// SPDX-License-Identifier: MIT
#include "import/EvernoteExportOperation.h"

#include "foundation/BMXLogManager.h"
#include "import/EvernoteHTMLExportOperation.h"
#include "import/EvernoteXMLExportOperation.h"
#include "import/RunFixture.h"
#include "platform/defaults/UserDefaults.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QRegularExpression>

#include <cstdio>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using platform::Error;
using platform::UserDefaults;
using platform::manifest::Record;
using ::testing::ElementsAre;

class FakeNotebook : public platform::EvernoteNotebook {
public:
    FakeNotebook(QString name, std::size_t notes)
        : m_name(std::move(name))
        , m_notes(notes)
    {
    }
    QString name() override { return m_name; }
    std::vector<std::shared_ptr<platform::EvernoteNote>> notes() override
    {
        return std::vector<std::shared_ptr<platform::EvernoteNote>>(m_notes);
    }

private:
    QString m_name;
    std::size_t m_notes;
};

class FakeEvernote : public platform::EvernoteApplication {
public:
    QString version() override { return QStringLiteral("6.13"); }
    void activate() override {}
    std::vector<std::shared_ptr<platform::EvernoteNotebook>> notebooks() override { return {}; }
};

// Ends every notebook as the test says.
class ScriptedRun : public EvernoteExportOperation {
public:
    std::function<std::optional<Error>(ScriptedRun&, const Notebook&, const QString&, const Record&)> work;
    using EvernoteExportOperation::informDelegateDidStart;

    QStringList folders;

protected:
    void performExportForNotebook(const Notebook& notebook, const QString& path, const Record& folder) override
    {
        folders += path;
        exportNotebookDidEnd(notebook, work ? work(*this, notebook, path, folder) : std::nullopt);
    }
};

class EvernoteExportOperationTest : public ImportRunTest {
protected:
    void SetUp() override
    {
        ImportRunTest::SetUp();
        m_run = std::make_shared<ScriptedRun>();
        prepare(*m_run);
    }

    void runNotebooks(const QStringList& names)
    {
        std::vector<EvernoteExportOperation::Notebook> notebooks;
        for (const QString& name : names)
            notebooks.push_back(std::make_shared<FakeNotebook>(name, 2));
        m_run->setNotebooks(notebooks);
        run(m_run);
    }

    void useQuillery(const char* version) { m_bridge->installed = {{platform::quillery::identifier, std::make_shared<RecordingQuillery>(text(version))}}; }

    std::shared_ptr<ScriptedRun> m_run;
    Error m_error;
};

TEST_F(EvernoteExportOperationTest, AnEarlierVersionThanThreeIsRefused)
{
    useQuillery("2.9");
    EXPECT_FALSE(m_run->getQuilleryApplicationBundleIdentifier(&m_error));
    EXPECT_EQ(m_error, Error(text("EvernoteExport"), 10002, text("Quillery 3.5 or later is required.")));
    EXPECT_EQ(m_run->quilleryApp(), nullptr);
}

TEST_F(EvernoteExportOperationTest, EveryVersionFromThreeOnIsAccepted)
{
    for (const char* version : {"3.0", "3.4", "3.4.9", "3.5", "3.5.0", "3.5.3", "3.6", "4.0", "10.1", "3.x", "3.5b2"}) {
        useQuillery(version);
        EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(&m_error), platform::quillery::identifier) << version;
    }
}

TEST_F(EvernoteExportOperationTest, AVersionThatCannotBeCheckedIsRefused)
{
    for (const char* version : {"", "3", "three", "2.0", "x.9", "3.5.-1"}) {
        useQuillery(version);
        EXPECT_FALSE(m_run->getQuilleryApplicationBundleIdentifier(&m_error)) << version;
        EXPECT_EQ(m_error.code(), 10002) << version;
    }
}

TEST_F(EvernoteExportOperationTest, WithoutQuilleryThereIsNoRun)
{
    m_bridge->installed.clear();
    runNotebooks({text("A")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10003")));
    EXPECT_EQ(m_delegate.errors[0], Error(text("EvernoteExport"), 10003, text("Quillery app not found.")));
    EXPECT_FALSE(QFileInfo::exists(filesPath()));
    EXPECT_FALSE(QFileInfo::exists(logPath()));
}

TEST_F(EvernoteExportOperationTest, ARunningEditionWinsAndTheDirectOneFirst)
{
    const auto direct = std::make_shared<RecordingQuillery>();
    const auto store = std::make_shared<RecordingQuillery>();
    m_bridge->running = {{platform::quillery::identifier, direct}, {platform::quillery::storeIdentifier, store}};
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::identifier);
    EXPECT_EQ(m_run->quilleryApp(), direct);
    m_bridge->running.remove(platform::quillery::identifier);
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::storeIdentifier);
    EXPECT_EQ(m_run->quilleryApp(), store);
}

TEST_F(EvernoteExportOperationTest, WhereNoneRunsTheInstalledEditionIsUsedTheDirectOneFirst)
{
    const auto store = std::make_shared<RecordingQuillery>();
    m_bridge->installed.insert(platform::quillery::storeIdentifier, store);
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::identifier);
    m_bridge->installed.remove(platform::quillery::identifier);
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::storeIdentifier);
    EXPECT_EQ(m_run->quilleryApp(), store);
}

TEST_F(EvernoteExportOperationTest, ARunningEditionThatCannotBeReachedEndsTheLookAmongRunningOnes)
{
    m_bridge->running = {{platform::quillery::identifier, nullptr},
                         {platform::quillery::storeIdentifier, std::make_shared<RecordingQuillery>()}};
    EXPECT_EQ(m_run->getQuilleryApplicationBundleIdentifier(), platform::quillery::identifier);
    EXPECT_EQ(m_run->quilleryApp(), m_quillery);
}

TEST_F(EvernoteExportOperationTest, TheStoreEditionsFoldersLieInItsContainer)
{
    m_bridge->installed = {{platform::quillery::storeIdentifier, m_quillery}};
    runNotebooks({text("A")});
    const QString support = m_folder.filePath("Library/Containers/com.brightmoor.Quillery3.mac/Data/Library/Application Support");
    EXPECT_EQ(m_run->filesPath(), support + text("/Quillery 3/LibraryImport/Evernote"));
    EXPECT_TRUE(QFileInfo::exists(support + text("/Quillery 3/LibraryImport/Evernote/Evernote.qllibxml")));
    EXPECT_TRUE(QFileInfo::exists(support + text("/Quillery 3/Logs/Evernote Export.log")));
}

TEST_F(EvernoteExportOperationTest, ARunReportsEachNotebookThenItsEndAndAsksForTheImport)
{
    runNotebooks({text("One"), text("Two")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 One"), text("will 2 Two"), text("end")));
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
    EXPECT_EQ(m_quillery->importedPaths, QStringList(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_EQ(static_cast<quint32>(m_quillery->mode), 0x51666370u);
    EXPECT_TRUE(m_quillery->optionsWereEmpty);
    EXPECT_EQ(m_run->folders, QStringList({filesPath() + text("/One"), filesPath() + text("/Two")}));
    EXPECT_TRUE(QFileInfo(filesPath() + text("/One")).isDir());
}

TEST_F(EvernoteExportOperationTest, TheLogBeginsWithTheVersions)
{
    m_run->setEvernoteApp(std::make_shared<FakeEvernote>());
    runNotebooks({text("One")});
    const QStringList lines = logLines();
    ASSERT_EQ(lines.size(), 5);
    const QRegularExpression header(text("^Vupuge \\d+\\.\\d+\\.\\d+ OS X .+$"));
    EXPECT_TRUE(header.match(lines[0]).hasMatch()) << qPrintable(lines[0]);
    EXPECT_EQ(lines[1], text("Quillery Version 3.5.3 Evernote Version 6.13"));
    EXPECT_EQ(lines[2], text("*** Export started for notebook: One"));
    EXPECT_EQ(lines[3], text("Exporting notes"));
    EXPECT_EQ(lines[4], text("*** Export ended for notebook: One"));
    EXPECT_FALSE(m_run->logStream()->isOpen());
}

TEST_F(EvernoteExportOperationTest, TheManifestHasItsKeysAndTypes)
{
    runNotebooks({text("One")});
    const QVariantMap list = manifest();
    EXPECT_EQ(list.keys(), QStringList({text("Entities"), text("ExporterVersion"), text("RemoveFileOnCompletion")}));
    EXPECT_EQ(list.value(text("ExporterVersion")).toLongLong(), 353);
    EXPECT_EQ(list.value(text("RemoveFileOnCompletion")).toString(), filesPath());
    EXPECT_EQ(list.value(text("Entities")).toMap().keys(), QStringList({text("Folder"), text("Item")}));
    const QList<QVariantMap> folders = records(text("Folder"));
    ASSERT_EQ(folders.size(), 1);
    const QVariantMap& folder = folders[0];
    EXPECT_EQ(folder.value(text("com.brightmoor.Quillery.EntityName")).toString(), text("Folder"));
    EXPECT_EQ(folder.value(text("name")).toString(), text("One"));
    EXPECT_EQ(folder.value(text("groupType")).toLongLong(), 70);
    EXPECT_EQ(folder.value(text("parent")).toString(), text("RootFolder"));
    EXPECT_TRUE(folder.value(text("comments")).toString().startsWith(text("Imported from Evernote, ")));
    const QRegularExpression uuid(text("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"));
    EXPECT_TRUE(uuid.match(folder.value(text("identifier")).toString()).hasMatch());
    const QByteArray xml = test::readFile(filesPath() + text("/Evernote.qllibxml"));
    EXPECT_TRUE(xml.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
    EXPECT_TRUE(xml.contains("<integer>353</integer>"));
    EXPECT_TRUE(xml.contains("<integer>70</integer>"));
}

TEST_F(EvernoteExportOperationTest, TwoNotebooksAreTwoFoldersAtTheTop)
{
    runNotebooks({text("One"), text("Two")});
    QStringList names;
    for (const QVariantMap& folder : records(text("Folder"))) {
        names += folder.value(text("name")).toString();
        EXPECT_EQ(folder.value(text("parent")).toString(), text("RootFolder"));
    }
    names.sort();
    EXPECT_EQ(names, QStringList({text("One"), text("Two")}));
}

TEST_F(EvernoteExportOperationTest, TheFolderRecordHandedOutIsTheOneInTheManifest)
{
    m_run->work = [](ScriptedRun&, const auto&, const QString&, const Record& folder) -> std::optional<Error> {
        EXPECT_TRUE(folder->contains(QStringLiteral("comments")));
        folder->insert(QStringLiteral("items"), QStringList());
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_TRUE(records(text("Folder"))[0].contains(text("items")));
}

TEST_F(EvernoteExportOperationTest, AChangedNotebookNameIsUsedForFolderAndRecordButNotForTheReport)
{
    runNotebooks({text(" a/b ")});
    EXPECT_EQ(m_delegate.reports.first(), text("will 2  a/b "));
    EXPECT_EQ(records(text("Folder"))[0].value(text("name")).toString(), text("a-b"));
    EXPECT_TRUE(QFileInfo(filesPath() + text("/a-b")).isDir());
}

TEST_F(EvernoteExportOperationTest, TwoNotebooksOfTheSameNameEndTheRunWithTwoReports)
{
    runNotebooks({text("a/b"), text("a:b"), text("c")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 a/b"), text("error 10004"), text("error none")));
    EXPECT_EQ(m_delegate.errors[0]->localizedDescription(), text("Unable to create the temporary directory to export files."));
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_TRUE(m_quillery->calls.isEmpty());
    const QStringList lines = logLines();
    EXPECT_EQ(lines.filter(text("Unable to create notebook directory %1/a-b: ").arg(filesPath())).size(), 1);
    EXPECT_EQ(lines.last(), text("Error: (null)"));
}

TEST_F(EvernoteExportOperationTest, ASecondRunRemovesTheFirstRunsFilesAndLog)
{
    runNotebooks({text("First")});
    m_delegate.reports.clear();
    m_run = std::make_shared<ScriptedRun>();
    prepare(*m_run);
    runNotebooks({text("Second")});
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/First")));
    EXPECT_TRUE(QFileInfo::exists(filesPath() + text("/Second")));
    EXPECT_TRUE(logLines().filter(text("First")).isEmpty());
    EXPECT_EQ(records(text("Folder")).size(), 1);
}

TEST_F(EvernoteExportOperationTest, WithoutATrustedTemporaryDirectoryTheRunEndsBeforeItHasALog)
{
    RunDirectories unusable = directories();
    unusable.temporary.clear();
    m_run->setRunDirectories(unusable);
    runNotebooks({text("A")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10004")));
    EXPECT_FALSE(QFileInfo::exists(logPath()));
}

TEST_F(EvernoteExportOperationTest, AnEarlierFilesFolderThatCannotBeRemovedEndsThePreparation)
{
    QDir(filesPath()).mkpath(text("left over"));
    ASSERT_EQ(chmod(qPrintable(m_folder.path()), 0755), 0);
    ASSERT_EQ(chmod(qPrintable(m_folder.filePath("temporary")), 0555), 0);
    // Root may remove anything, so somebody else tries.
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    const bool prepared = m_run->prepareToExportWithAppIdentifier(platform::quillery::identifier, &m_error);
    if (isRoot) {
        ASSERT_EQ(seteuid(0), 0);
    }
    chmod(qPrintable(m_folder.filePath("temporary")), 0755);
    EXPECT_FALSE(prepared);
    EXPECT_EQ(m_error, Error(text("EvernoteExport"), 10004, text("Unable to create the temporary directory to export files.")));
    EXPECT_TRUE(QFileInfo::exists(filesPath()));
    EXPECT_EQ(m_run->libraryPlist(), nullptr);
    EXPECT_EQ(m_run->logStream(), nullptr);
}

TEST_F(EvernoteExportOperationTest, AFilesFolderThatCannotBeMadeIsFoundOutAtTheFirstNotebook)
{
    RunDirectories directories = this->directories();
    directories.temporary = m_folder.write(text("a file"), "");
    m_run->setRunDirectories(directories);
    ASSERT_TRUE(m_run->getQuilleryApplicationBundleIdentifier());
    EXPECT_TRUE(m_run->prepareToExportWithAppIdentifier(platform::quillery::identifier, &m_error));
    EXPECT_EQ(m_error.code(), 10004);
    BMXLogManager::sharedManager().restoreStandardError();
    runNotebooks({text("A")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("error 10004"), text("error none")));
    EXPECT_TRUE(QFileInfo::exists(logPath()));
}

TEST_F(EvernoteExportOperationTest, AnErrorOfANotebookEndsTheRunWithoutAManifest)
{
    m_run->work = [](ScriptedRun&, const auto&, const QString&, const Record&) { return Error(QStringLiteral("Own"), 7, QStringLiteral("own")); };
    runNotebooks({text("One"), text("Two")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 One"), text("error 7")));
    EXPECT_FALSE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_EQ(logLines().last(), text("Error: Error Domain=Own Code=7 \"own\""));
    EXPECT_TRUE(m_run->logStream()->isOpen());
}

TEST_F(EvernoteExportOperationTest, AnErrorWhileCancelledIsACancellationWhateverItsCode)
{
    m_run->work = [](ScriptedRun& self, const auto&, const QString&, const Record&) {
        self.cancel();
        return Error(QStringLiteral("Own"), 7);
    };
    runNotebooks({text("One")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 One"), text("cancel")));
}

TEST_F(EvernoteExportOperationTest, ANotebookThatEndsWellWhileCancelledGoesOn)
{
    m_run->work = [](ScriptedRun& self, const auto&, const QString&, const Record&) -> std::optional<Error> {
        self.cancel();
        return std::nullopt;
    };
    runNotebooks({text("One"), text("Two")});
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
}

TEST_F(EvernoteExportOperationTest, AnImportThatTheApplicationRefusesIsReported)
{
    m_quillery->failure = Error(text("Library"), 5, text("The disk is full."));
    runNotebooks({text("One")});
    EXPECT_EQ(m_delegate.reports.last(), text("error 5"));
    EXPECT_TRUE(QFileInfo::exists(filesPath() + text("/Evernote.qllibxml")));
}

TEST_F(EvernoteExportOperationTest, AManifestThatCannotBeWrittenIsHandedOnAllTheSame)
{
    m_run->work = [](ScriptedRun& self, const auto&, const QString&, const Record&) -> std::optional<Error> {
        QDir(self.filesPath()).mkpath(QStringLiteral("Evernote.qllibxml/in the way"));
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
}

TEST_F(EvernoteExportOperationTest, StandardErrorStandsInTheLogDuringTheRunAndIsGivenBack)
{
    m_run->work = [](ScriptedRun&, const auto&, const QString&, const Record&) -> std::optional<Error> {
        std::fputs("a library's complaint\n", stderr);
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_EQ(logLines().filter(text("a library's complaint")).size(), 1);
    EXPECT_FALSE(BMXLogManager::sharedManager().isRedirected());
}

TEST_F(EvernoteExportOperationTest, ADelegateTakenAwayHearsNothingMore)
{
    m_run->work = [](ScriptedRun& self, const auto&, const QString&, const Record&) -> std::optional<Error> {
        self.setDelegate(nullptr);
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 One")));
}

TEST_F(EvernoteExportOperationTest, NoRunReportsItsStartButTheReportCanBeMade)
{
    runNotebooks({text("One")});
    EXPECT_FALSE(m_delegate.reports.contains(text("start")));
    platform::OperationQueue queue;
    bool done = false;
    queue.addOperationWithBlock([&] { m_run->informDelegateDidStart(); });
    queue.addOperationWithBlock([&] { done = true; });
    while (!m_delegate.reports.contains(text("start")))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    queue.waitUntilAllOperationsAreFinished();
    EXPECT_TRUE(done);
}

TEST_F(EvernoteExportOperationTest, TheFactoryTakesTheEnexWayUnlessToldOtherwise)
{
    const auto app = std::make_shared<FakeEvernote>();
    const std::vector<EvernoteExportOperation::Notebook> notebooks{std::make_shared<FakeNotebook>(text("A"), 1)};
    const auto unset = EvernoteExportOperation::exportOperationForApp(app, notebooks, &m_delegate);
    EXPECT_TRUE(std::dynamic_pointer_cast<EvernoteXMLExportOperation>(unset));
    EXPECT_EQ(unset->evernoteApp(), app);
    EXPECT_EQ(unset->notebooks(), notebooks);
    EXPECT_EQ(unset->delegate(), &m_delegate);
    UserDefaults::standard().setOverride(text("UseHTMLExport"), true);
    EXPECT_TRUE(std::dynamic_pointer_cast<EvernoteHTMLExportOperation>(
        EvernoteExportOperation::exportOperationForApp(app, notebooks, &m_delegate)));
}

TEST_F(EvernoteExportOperationTest, TheTextImportUsesThePersonsFontWithAWholeSize)
{
    EXPECT_EQ(m_run->textImportOptions().standardFontFamily, text("Helvetica"));
    EXPECT_EQ(m_run->textImportOptions().defaultFontSize, 12);
    UserDefaults::standard().setOverride(text("DefaultNoteFontName"), text("Georgia"));
    UserDefaults::standard().setOverride(text("DefaultNoteFontSize"), 13.9);
    const ScriptedRun chosen;
    EXPECT_EQ(chosen.textImportOptions().standardFontFamily, text("Georgia"));
    EXPECT_EQ(chosen.textImportOptions().defaultFontSize, 13);
    UserDefaults::standard().setOverride(text("DefaultNoteFontName"), text("No Such Font At All"));
    EXPECT_EQ(ScriptedRun().textImportOptions().standardFontFamily, text("Helvetica"));
}

TEST_F(EvernoteExportOperationTest, DebugModeComesFromTheSetting)
{
    EXPECT_FALSE(m_run->debugMode());
    UserDefaults::standard().setOverride(text("ExportDebug"), true);
    EXPECT_TRUE(ScriptedRun().debugMode());
}

} // namespace
