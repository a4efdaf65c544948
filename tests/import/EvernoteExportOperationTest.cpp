// SPDX-License-Identifier: MIT
#include "import/EvernoteExportOperation.h"

#include "import/EvernoteHTMLExportOperation.h"
#include "import/EvernoteXMLExportOperation.h"
#include "import/ScriptedRun.h"
#include "platform/core/StandardDirectories.h"
#include "platform/core/SystemLog.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/propertylist/PropertyList.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace {

using platform::Error;
using platform::UserDefaults;
using platform::manifest::Record;
using ::testing::ElementsAre;

class EvernoteExportOperationTest : public ScriptedRunTest {};

TEST_F(EvernoteExportOperationTest, ARunReportsEachNotebookThenItsEndAndAsksForTheImport)
{
    runNotebooks({text("One"), text("Two")});
    EXPECT_THAT(m_delegate.reports,
                ElementsAre(text("will 2 One"), text("will 2 Two"), text("end")));
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
    EXPECT_EQ(m_quillery->importedPaths, QStringList(filesPath() + text("/Evernote.qllibxml")));
    EXPECT_EQ(static_cast<quint32>(m_quillery->mode), 0x51666370u);
    EXPECT_TRUE(m_quillery->optionsWereEmpty);
    EXPECT_EQ(m_run->folders,
              QStringList({filesPath() + text("/One"), filesPath() + text("/Two")}));
    EXPECT_TRUE(QFileInfo(filesPath() + text("/One")).isDir());
}

TEST_F(EvernoteExportOperationTest, AnErrorOfANotebookEndsTheRunWithoutAManifest)
{
    m_run->work = [](ScriptedRun&, const auto&, const QString&, const Record&) {
        return Error(QStringLiteral("Own"), 7, QStringLiteral("own"));
    };
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
    m_run->work = [](ScriptedRun& self, const auto&, const QString&,
                     const Record&) -> std::optional<Error> {
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

TEST_F(EvernoteExportOperationTest,
       AnImportThatFailsIsNoCancellationEvenWhenTheRunWasCancelledMeanwhile)
{
    m_quillery->failure = Error(text("Library"), 5, text("The disk is full."));
    m_run->work = [](ScriptedRun& self, const auto&, const QString&,
                     const Record&) -> std::optional<Error> {
        self.cancel();
        return std::nullopt;
    };
    runNotebooks({text("One")});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("will 2 One"), text("error 5")));
}

TEST_F(EvernoteExportOperationTest, AManifestThatCannotBeWrittenIsHandedOnAllTheSame)
{
    m_run->work = [](ScriptedRun& self, const auto&, const QString&,
                     const Record&) -> std::optional<Error> {
        QDir(self.filesPath()).mkpath(QStringLiteral("Evernote.qllibxml/in the way"));
        return std::nullopt;
    };
    QStringList messages;
    const platform::SystemLogObserver observer(
        [&](const QString& message) { messages += message; });
    runNotebooks({text("One")});
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
    EXPECT_EQ(m_delegate.reports.last(), text("end"));
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].startsWith(text("Couldn't write the import manifest: ")))
        << qPrintable(messages[0]);
}

TEST_F(EvernoteExportOperationTest, ARunWithoutNotebooksImportsNothingAndEnds)
{
    runNotebooks({});
    EXPECT_THAT(m_delegate.reports, ElementsAre(text("end")));
    EXPECT_TRUE(records(text("Folder")).isEmpty());
    EXPECT_THAT(m_quillery->calls, ElementsAre(text("activate"), text("import")));
}

TEST_F(EvernoteExportOperationTest, TheSettingsOfARunAreThoseOfItsBeginning)
{
    const QString key = text("DefaultNoteFontSize");
    const QString path =
        platform::StandardDirectories::preferences() + text("/com.brightmoor.Vupuge.plist");
    const auto set = [&](int size) {
        ASSERT_TRUE(QDir().mkpath(platform::StandardDirectories::preferences()));
        ASSERT_TRUE(platform::writePropertyList(path, QVariantMap{{key, size}},
                                                platform::PropertyListFormat::Xml));
    };
    set(11);
    QList<qint64> sizes;
    m_run->work = [&](ScriptedRun&, const auto&, const QString&,
                      const Record&) -> std::optional<Error> {
        sizes += UserDefaults::standard().integerForKey(key);
        set(22);
        return std::nullopt;
    };
    runNotebooks({text("One"), text("Two")});
    EXPECT_EQ(sizes, (QList<qint64>{11, 11}));
    EXPECT_EQ(UserDefaults::standard().integerForKey(key), 22);
    ASSERT_TRUE(QFile::remove(path));
}

TEST_F(EvernoteExportOperationTest, ADelegateTakenAwayHearsNothingMore)
{
    m_run->work = [](ScriptedRun& self, const auto&, const QString&,
                     const Record&) -> std::optional<Error> {
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
    const auto app = std::make_shared<ScriptedEvernote>();
    const std::vector<EvernoteExportOperation::Notebook> notebooks{
        std::make_shared<ScriptedNotebook>(text("A"), 1)};
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
