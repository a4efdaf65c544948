// SPDX-License-Identifier: MIT
#include "app/EvernoteExportPanel.h"

#include "AlertWatcher.h"
#include "WindowFixture.h"

#include <QLockFile>
#include <QProgressBar>

#include <future>

using platform::Error;

namespace {

class EvernoteExportPanelTest : public WindowFixture {
protected:
    // A run that a test reports for itself.
    class Run : public EvernoteExportOperation {};

    // Shows the sheet of a run that stays where it prepares.
    void beginFileRun(int notes = 2)
    {
        closeGate();
        launch();
        notesFile = QUrl::fromLocalFile(folder.write("My Notes.enex", test::enexWithNotes(notes)));
        panel = &app->exportPanel();
        panel->showSheetOnWindowToExportFromFile(app->window(), notesFile,
                                                 [this](int code) { returnCodes += code; });
        reporter = panel;
    }

    [[nodiscard]] QProgressBar& bar() const { return *find<QProgressBar>("exportProgress"); }
    [[nodiscard]] bool barIsIndeterminate() const { return bar().maximum() == 0; }

    std::shared_ptr<Run> run = std::make_shared<Run>();
    QUrl notesFile;
    EvernoteExportPanel* panel = nullptr;
    EvernoteExportOperationDelegate* reporter = nullptr;
    QList<int> returnCodes;
};

} // namespace

TEST_F(EvernoteExportPanelTest, ASheetThatPreparesHangsOnItsWindow)
{
    beginFileRun();
    EXPECT_EQ(text("titleMessage"), "Preparing...");
    EXPECT_EQ(panel->informationMessage(), "");
    EXPECT_TRUE(barIsIndeterminate());
    const QWidget* const sheet = find("progressSheet");
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->parentWidget(), &app->window());
    EXPECT_EQ(sheet->windowType(), Qt::Sheet);
    EXPECT_EQ(panel->operationQueue().operations().size(), 1U);
}

TEST_F(EvernoteExportPanelTest, NothingIsLoadedBeforeTheFirstRun)
{
    launch();
    EXPECT_EQ(app->exportPanel().window(), nullptr);
}

TEST_F(EvernoteExportPanelTest, AnImportOfNotebooksBringsEvernoteToTheFrontAnImportOfAFileDoesNot)
{
    closeGate();
    launchWithNotebooks({"A"});
    app->exportPanel().showSheetOnWindowToExportFromApp(app->window(), evernote, evernote->listed,
                                                        nullptr);
    EXPECT_EQ(evernote->activations, 1);
    AlertWatcher alerts;
    gate->open();
    ASSERT_TRUE(waitForWidget("dismiss"));
    click("dismiss");
    ASSERT_TRUE(waitUntilGone("progressSheet"));
    app->openURLs({QUrl::fromLocalFile(folder.write("x.enex", test::enexWithNotes(1)))});
    EXPECT_EQ(evernote->activations, 1);
}

TEST_F(EvernoteExportPanelTest, AStartWouldBeTold)
{
    beginFileRun();
    reporter->exportOperationDidStart(*run);
    EXPECT_EQ(text("titleMessage"), "Exporting Notes");
}

TEST_F(EvernoteExportPanelTest, ANotebookIsTitledInQuotationMarksAndItsCountIsShown)
{
    beginFileRun();
    reporter->exportOperationWillExportRecordsFromNotebook(*run, 12, "Tom's \"best\" %@ recipes");
    EXPECT_EQ(text("titleMessage"), "Exporting notes from \"Tom's \"best\" %@ recipes\"");
    EXPECT_EQ(text("informationMessage"), "0 of 12 notes exported");
    EXPECT_EQ(bar().minimum(), 0);
    EXPECT_EQ(bar().maximum(), 12);
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(EvernoteExportPanelTest, AFilesCountIsShownWithItsFirstNoteOnly)
{
    beginFileRun();
    reporter->exportOperationWillExportRecordsFromFileAtURL(*run, 3, notesFile);
    EXPECT_EQ(text("titleMessage"), "Exporting notes from \"My Notes.enex\"");
    EXPECT_EQ(text("informationMessage"), "0 notes exported");
    EXPECT_EQ(bar().maximum(), 3);
    reporter->exportOperationDidExportRecord(*run);
    EXPECT_EQ(text("informationMessage"), "1 of 3 notes exported");
    EXPECT_EQ(bar().value(), 1);
}

TEST_F(EvernoteExportPanelTest, EachNotebookRestartsTheBarWithItsOwnCount)
{
    beginFileRun();
    reporter->exportOperationWillExportRecordsFromNotebook(*run, 5, "A");
    reporter->exportOperationDidExportRecord(*run);
    reporter->exportOperationWillExportRecordsFromNotebook(*run, 9, "B");
    EXPECT_EQ(bar().value(), 0);
    EXPECT_EQ(bar().maximum(), 9);
    EXPECT_EQ(text("informationMessage"), "0 of 9 notes exported");
}

TEST_F(EvernoteExportPanelTest, TheBarNeverGoesBeyondItsEnd)
{
    beginFileRun();
    reporter->exportOperationWillExportRecordsFromNotebook(*run, 1, "A");
    reporter->exportOperationDidExportRecord(*run);
    reporter->exportOperationDidExportRecord(*run);
    EXPECT_EQ(text("informationMessage"), "1 of 1 notes exported");
}

TEST_F(EvernoteExportPanelTest, AnEmptyNotebookIsNotABarThatMovesForEver)
{
    beginFileRun();
    reporter->exportOperationWillExportRecordsFromNotebook(*run, 0, "Empty");
    EXPECT_EQ(text("informationMessage"), "0 of 0 notes exported");
    EXPECT_FALSE(barIsIndeterminate());
}

TEST_F(EvernoteExportPanelTest, AnErrorIsShownInAModalAlertAndTheSheetStays)
{
    beginFileRun();
    AlertWatcher alerts;
    reporter->exportOperationDidEncounterError(
        *run, Error("EvernoteExport", 10003, "Quillery app not found."));
    ASSERT_EQ(alerts.alerts().size(), 1U);
    EXPECT_EQ(alerts.alerts().front().text, "An error occurred while exporting.");
    EXPECT_EQ(alerts.alerts().front().informativeText, "Quillery app not found.");
    EXPECT_EQ(alerts.alerts().front().modality, Qt::ApplicationModal);
    EXPECT_NE(find("progressSheet"), nullptr);
    EXPECT_TRUE(returnCodes.isEmpty());
}

TEST_F(EvernoteExportPanelTest, ANilErrorIsAnUnknownError)
{
    beginFileRun();
    AlertWatcher alerts;
    reporter->exportOperationDidEncounterError(*run, std::nullopt);
    ASSERT_EQ(alerts.alerts().size(), 1U);
    EXPECT_EQ(alerts.alerts().front().informativeText, "An unknown error occurred.");
}

TEST_F(EvernoteExportPanelTest, TwoErrorsOfARunAreTwoAlerts)
{
    beginFileRun();
    AlertWatcher alerts;
    reporter->exportOperationDidEncounterError(*run, Error("D", 1, "First."));
    reporter->exportOperationDidEncounterError(*run, Error("D", 2, "Second."));
    ASSERT_EQ(alerts.alerts().size(), 2U);
    EXPECT_EQ(alerts.alerts()[0].informativeText, "First.");
    EXPECT_EQ(alerts.alerts()[1].informativeText, "Second.");
}

TEST_F(EvernoteExportPanelTest,
       CancelWhilePreparingChangesTheTitleAtOnceAndTheSheetWaitsForTheReport)
{
    beginFileRun();
    click("cancel");
    EXPECT_EQ(text("titleMessage"), "Cancelling...");
    EXPECT_EQ(panel->informationMessage(), "");
    EXPECT_TRUE(barIsIndeterminate());
    EXPECT_TRUE(panel->operationQueue().operations().front()->isCancelled());
    QTest::qWait(100);
    EXPECT_NE(find("progressSheet"), nullptr);
    EXPECT_TRUE(returnCodes.isEmpty());
    reporter->exportOperationDidCancel(*run);
    EXPECT_EQ(find("progressSheet"), nullptr);
    EXPECT_EQ(returnCodes, QList<int>{EvernoteExportPanel::ReturnCodeCancelled});
}

TEST_F(EvernoteExportPanelTest, EscapeAndTheWindowsCloseButtonCancelAndCloseNothing)
{
    beginFileRun();
    QTest::keyClick(find("progressSheet"), Qt::Key_Escape);
    EXPECT_EQ(text("titleMessage"), "Cancelling...");
    EXPECT_FALSE(find("progressSheet")->close());
    EXPECT_NE(find("progressSheet"), nullptr);
}

TEST_F(EvernoteExportPanelTest, AnEndClosesTheSheetWithReturnCodeOne)
{
    beginFileRun();
    reporter->exportOperationDidEnd(*run);
    EXPECT_EQ(find("progressSheet"), nullptr);
    EXPECT_EQ(returnCodes, QList<int>{EvernoteExportPanel::ReturnCodeEnded});
}

TEST_F(EvernoteExportPanelTest, AFileThatIsCancelledWhilePreparingIsImportedAllTheSame)
{
    beginFileRun(3);
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return panel->operationQueue().operations().front()->isExecuting(); }));
    click("cancel");
    gate->open();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !returnCodes.isEmpty(); }, 20000));
    EXPECT_EQ(returnCodes, QList<int>{EvernoteExportPanel::ReturnCodeEnded});
    EXPECT_TRUE(QFileInfo::exists(library->directory() + "/My Notes/Note 3.qlnote"));
}

TEST_F(EvernoteExportPanelTest,
       ARunThatIsCancelledBeforeItBeginsReportsNothingButTheSheetCanBeClosed)
{
    launch();
    panel = &app->exportPanel();
    panel->operationQueue().setMaxConcurrentOperationCount(1);
    std::promise<void> release;
    panel->operationQueue().addOperationWithBlock(
        [future = release.get_future().share()] { future.wait(); });
    app->openURLs({QUrl::fromLocalFile(folder.write("Notes.enex", test::enexWithNotes(1)))});
    click("cancel");
    release.set_value();
    ASSERT_TRUE(waitForWidget("dismiss"));
    EXPECT_EQ(text("titleMessage"), "Cancelling...");
    click("dismiss");
    EXPECT_TRUE(waitUntilGone("progressSheet"));
    EXPECT_FALSE(QFileInfo::exists(library->directory()));
}

TEST_F(EvernoteExportPanelTest, CancelDuringTheConversionOfAFileLetsItRunToItsEnd)
{
    beginFileRun(200);
    gate->open();
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return text("informationMessage").startsWith("3 of 200"); }, 15000));
    click("cancel");
    EXPECT_EQ(text("titleMessage"), "Cancelling...");
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return text("informationMessage").endsWith("of 200 notes exported"); }, 15000));
    EXPECT_EQ(text("titleMessage"), "Cancelling...");
    EXPECT_TRUE(barIsIndeterminate());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !returnCodes.isEmpty(); }, 20000));
    EXPECT_EQ(returnCodes, QList<int>{EvernoteExportPanel::ReturnCodeEnded});
}

TEST_F(EvernoteExportPanelTest, AfterAnErrorCancelIsNeverAnsweredButTheSheetCanBeClosed)
{
    launch();
    AlertWatcher alerts;
    app->openURLs({QUrl::fromLocalFile(folder.write("Bad.enex", "<en-export><note>"))});
    ASSERT_TRUE(alerts.waitFor(1));
    ASSERT_TRUE(waitForWidget("dismiss"));
    click("cancel");
    EXPECT_EQ(text("titleMessage"), "Cancelling...");
    QTest::qWait(200);
    EXPECT_NE(find("progressSheet"), nullptr);
    EXPECT_EQ(find<QAbstractButton>("dismiss")->text(), "Close");
    click("dismiss");
    EXPECT_TRUE(waitUntilGone("progressSheet"));
}

TEST_F(EvernoteExportPanelTest, EscapeClosesTheSheetOfAFailedRun)
{
    launch();
    AlertWatcher alerts;
    app->openURLs({QUrl::fromLocalFile(folder.write("Bad.enex", "<en-export><note>"))});
    ASSERT_TRUE(waitForWidget("dismiss"));
    QTest::keyClick(find("progressSheet"), Qt::Key_Escape);
    EXPECT_TRUE(waitUntilGone("progressSheet"));
}

TEST_F(EvernoteExportPanelTest, AMalformedFileImportsNothing)
{
    launch();
    AlertWatcher alerts;
    app->openURLs({QUrl::fromLocalFile(folder.write("Bad.enex", "<en-export><note></en-export>"))});
    ASSERT_TRUE(alerts.waitFor(1));
    EXPECT_EQ(alerts.alerts().front().text, "An error occurred while exporting.");
    EXPECT_FALSE(alerts.alerts().front().informativeText.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(library->directory()));
}

TEST_F(EvernoteExportPanelTest, ASecondRunReusesTheQueueAndRestartsTheBar)
{
    launch();
    const platform::OperationQueue* const queue = &app->exportPanel().operationQueue();
    for (int run_ = 0; run_ < 2; ++run_) {
        app->openURLs({QUrl::fromLocalFile(folder.write("Notes.enex", test::enexWithNotes(4)))});
        EXPECT_EQ(text("titleMessage"), "Preparing...");
        EXPECT_TRUE(barIsIndeterminate());
        EXPECT_EQ(&app->exportPanel().operationQueue(), queue);
        ASSERT_TRUE(waitForWidget("resultSheet"));
        EXPECT_EQ(text("importedNotes"), "4 notes were imported.");
        click("done");
        ASSERT_TRUE(waitUntilGone("resultSheet"));
    }
    EXPECT_TRUE(QFileInfo::exists(library->directory() + "/Notes 1"));
}

TEST_F(EvernoteExportPanelTest, WhileAnotherProcessImportsNothingIsStarted)
{
    launch();
    QLockFile other(folder.filePath("tmp/Evernote.lock"));
    other.setStaleLockTime(0);
    ASSERT_TRUE(other.lock());
    AlertWatcher alerts;
    app->openURLs({QUrl::fromLocalFile(folder.write("Notes.enex", test::enexWithNotes(1)))});
    ASSERT_TRUE(alerts.waitFor(1));
    EXPECT_EQ(alerts.alerts().front().text, "Another import is running.");
    EXPECT_EQ(find("progressSheet"), nullptr);
}

TEST_F(EvernoteExportPanelTest, TheWindowCannotBeClosedUnderARun)
{
    beginFileRun();
    QTest::keyClick(&app->window(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(app->window().isVisible());
    EXPECT_NE(find("progressSheet"), nullptr);
}
