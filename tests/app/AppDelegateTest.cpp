// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "AlertWatcher.h"
#include "WindowFixture.h"
#include "app/ArrayControllerBMExtensions.h"

#include <QAction>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QProgressBar>

using testing::ElementsAre;

namespace {

class AppDelegateTest : public WindowFixture {
protected:
    [[nodiscard]] QTableView& table() const { return *find<QTableView>("notebooks"); }

    [[nodiscard]] QStringList shownNames() const
    {
        QStringList names;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            names += table().model()->index(row, NotebooksModel::NameColumn).data().toString();
        return names;
    }

    [[nodiscard]] QStringList modelNames() const
    {
        QStringList names;
        for (const NotebookRow& row : app->notebooks())
            names += row.name;
        return names;
    }

    void clickCell(int row, int column) const
    {
        const QPoint place = table().visualRect(table().model()->index(row, column)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
    }

    [[nodiscard]] QStringList checkedNames() const
    {
        QStringList names;
        for (int row = 0; row < table().model()->rowCount(); ++row) {
            if (table()
                    .model()
                    ->index(row, NotebooksModel::ImportColumn)
                    .data(Qt::CheckStateRole)
                    .toInt() == Qt::Checked)
                names += table().model()->index(row, NotebooksModel::NameColumn).data().toString();
        }
        return names;
    }

    void clickHeadOfBoxes() const
    {
        QHeaderView& head = *table().horizontalHeader();
        const QPoint place(head.sectionViewportPosition(NotebooksModel::ImportColumn) +
                               head.sectionSize(0) / 2,
                           head.height() / 2);
        QTest::mouseClick(head.viewport(), Qt::LeftButton, {}, place);
    }

    // The notebooks of the run that the panel holds back at its gate.
    [[nodiscard]] QStringList notebooksOfRun() const
    {
        QStringList names;
        const auto operations = app->exportPanel().operationQueue().operations();
        if (operations.empty())
            return names;
        const auto run = std::dynamic_pointer_cast<EvernoteExportOperation>(operations.front());
        for (const auto& notebook : run->notebooks())
            names += notebook->name();
        return names;
    }

    // Starts the program and says whether it ended by itself, and with which alerts.
    [[nodiscard]] bool endsItself(AlertWatcher& alerts)
    {
        QTimer::singleShot(0, [this] { launch(); });
        QTimer giveUp;
        bool gaveUp = false;
        QObject::connect(&giveUp, &QTimer::timeout, [&gaveUp] {
            gaveUp = true;
            QCoreApplication::quit();
        });
        giveUp.start(3000);
        QApplication::exec();
        return !gaveUp && alerts.alerts().size() == 1;
    }
};

} // namespace

TEST_F(AppDelegateTest, TellsWhatItWaitsForWhileItLoadsNotebooks)
{
    evernote = std::make_shared<test::FakeEvernote>();
    launch();
    EXPECT_TRUE(app->showProgressIndicator());
    EXPECT_NE(find<QProgressBar>("progressIndicator"), nullptr);
    EXPECT_EQ(text("status"), "Getting notebook names...");
}

TEST_F(AppDelegateTest, ListsTheNotebooksOneSecondAfterItsStart)
{
    evernote = std::make_shared<test::FakeEvernote>();
    evernote->add("Recipes", 3);
    QElapsedTimer timer;
    timer.start();
    launch();
    EXPECT_EQ(evernote->listings, 0);
    ASSERT_TRUE(QTest::qWaitFor([this] { return evernote->listings > 0; }));
    EXPECT_GE(timer.elapsed(), 900);
}

TEST_F(AppDelegateTest, ListedNotebooksAreCheckedAndTheStatusGoes)
{
    launchWithNotebooks({"Recipes", "Travel"});
    EXPECT_FALSE(app->showProgressIndicator());
    EXPECT_EQ(find("progressIndicator"), nullptr);
    EXPECT_EQ(app->statusMessage(), "");
    EXPECT_THAT(checkedNames(), ElementsAre("Recipes", "Travel"));
}

TEST_F(AppDelegateTest, TheTableIsSortedByNameWithoutRegardToCase)
{
    launchWithNotebooks({"banana", "Apple", "cherry", "Banana split"});
    EXPECT_THAT(shownNames(), ElementsAre("Apple", "banana", "Banana split", "cherry"));
}

TEST_F(AppDelegateTest, TheModelHoldsTheNotebooksInTheReverseOfEvernotesOrder)
{
    launchWithNotebooks({"A", "C", "B"});
    EXPECT_THAT(modelNames(), ElementsAre("B", "C", "A"));
}

TEST_F(AppDelegateTest, ANotebookWithAnEmptyNameIsNotListed)
{
    launchWithNotebooks({"A", "", "B"});
    EXPECT_THAT(shownNames(), ElementsAre("A", "B"));
}

TEST_F(AppDelegateTest, ShowsTheNumberOfNotesOfListingTime)
{
    evernote = std::make_shared<test::FakeEvernote>();
    evernote->add("Many", 1234);
    launch();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !app->showProgressIndicator(); }));
    EXPECT_EQ(app->objectInNotebooksAtIndex(0).numberOfNotes, 1234U);
    EXPECT_EQ(table().model()->index(0, NotebooksModel::NumberOfNotesColumn).data().toString(),
              "1,234");
}

TEST_F(AppDelegateTest, AnAccountWithoutNotebooksIsPolledEveryHalfSecond)
{
    evernote = std::make_shared<test::FakeEvernote>();
    QElapsedTimer timer;
    timer.start();
    launch();
    // After 1.0, 1.5 and 2.0 seconds.
    ASSERT_TRUE(QTest::qWaitFor([this] { return evernote->listings == 3; }, 10000));
    EXPECT_GE(timer.elapsed(), 1900);
    EXPECT_TRUE(app->showProgressIndicator());
    EXPECT_EQ(text("status"), "Getting notebook names...");
    evernote->add("At last");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !app->showProgressIndicator(); }, 5000));
    EXPECT_THAT(shownNames(), ElementsAre("At last"));
}

TEST_F(AppDelegateTest, NotebooksAreListedOncePerLaunch)
{
    launchWithNotebooks({"A"});
    evernote->add("Later");
    QTest::qWait(1200);
    EXPECT_EQ(evernote->listings, 1);
    EXPECT_THAT(shownNames(), ElementsAre("A"));
}

TEST_F(AppDelegateTest, WithoutEvernoteItSaysSoAndEnds)
{
    AlertWatcher alerts;
    evernoteIsInstalled = false;
    ASSERT_TRUE(endsItself(alerts));
    const AlertWatcher::Seen& alert = alerts.alerts().front();
    EXPECT_EQ(alert.text, "Unable to find the Evernote application.");
    EXPECT_EQ(alert.informativeText,
              "Please ensure the latest version of Evernote is installed and try again.");
    EXPECT_THAT(alert.buttons, ElementsAre("Quit"));
    EXPECT_EQ(alert.modality, Qt::ApplicationModal);
}

TEST_F(AppDelegateTest, WithAnEvernoteThatIsTooOldItSaysSoAndEnds)
{
    for (const char* const version : {"4.1", "4.0", "3.0", "3.1.2", "4.1.9"}) {
        AlertWatcher alerts;
        evernote = std::make_shared<test::FakeEvernote>(version);
        ASSERT_TRUE(endsItself(alerts)) << version;
        EXPECT_EQ(alerts.alerts().front().text, "Evernote 5.2.0 or later is required.") << version;
        EXPECT_EQ(alerts.alerts().front().informativeText,
                  "Please ensure the latest version of Evernote is installed and try again.");
        EXPECT_THAT(alerts.alerts().front().buttons, ElementsAre("Quit"));
    }
}

TEST_F(AppDelegateTest, AProgramThatEndsForWantOfEvernoteImportsNothingMore)
{
    AlertWatcher alerts;
    evernoteIsInstalled = false;
    ASSERT_TRUE(endsItself(alerts));
    app->openURLs({QUrl::fromLocalFile(folder.write("Notes.enex", test::enexWithNotes(1)))});
    EXPECT_EQ(find("progressSheet"), nullptr);
}

TEST_F(AppDelegateTest, JudgesEvernoteByEachNumberOfItsVersion)
{
    AlertWatcher alerts;
    for (const char* const version : {"4.5", "4.6", "3.5", "5.0", "5.1", "5.2.0", "10.2"}) {
        evernote = std::make_shared<test::FakeEvernote>(version);
        launch();
        EXPECT_EQ(text("status"), "Getting notebook names...") << version;
        app = nullptr;
    }
    EXPECT_TRUE(alerts.alerts().empty());
}

TEST_F(AppDelegateTest, WithNothingThatConnectsToEvernoteItSaysHowNotesGetHere)
{
    launch();
    EXPECT_NE(find("emptyState"), nullptr);
    EXPECT_NE(find<QAbstractButton>("chooseFile"), nullptr);
    EXPECT_EQ(find("importButton"), nullptr);
    EXPECT_EQ(find("search"), nullptr);
    EXPECT_FALSE(app->showProgressIndicator());
}

TEST_F(AppDelegateTest, ImportingWhileNotebooksAreLoadingOnlyBeeps)
{
    evernote = std::make_shared<test::FakeEvernote>();
    launch();
    click("importButton");
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(find("progressSheet"), nullptr);
    EXPECT_EQ(find("alert"), nullptr);
}

TEST_F(AppDelegateTest, AFileCanBeImportedWhileNotebooksAreLoading)
{
    evernote = std::make_shared<test::FakeEvernote>();
    launch();
    click("importFileButton");
    EXPECT_NE(find<QFileDialog>("openPanel"), nullptr);
    EXPECT_EQ(beeps, 0);
    QTest::keyClick(find("openPanel"), Qt::Key_Escape);
}

TEST_F(AppDelegateTest, UncheckingEveryRowAndPressingImportSaysThatNoneIsSelected)
{
    launchWithNotebooks({"A", "B"});
    clickCell(0, NotebooksModel::ImportColumn);
    clickCell(1, NotebooksModel::ImportColumn);
    AlertWatcher alerts;
    click("importButton");
    ASSERT_TRUE(alerts.waitFor(1));
    const AlertWatcher::Seen& alert = alerts.alerts().front();
    EXPECT_EQ(alert.text, "No notebooks selected!");
    EXPECT_EQ(alert.informativeText, "Select the notebooks to import and try again.");
    EXPECT_EQ(alert.modality, Qt::WindowModal);
    EXPECT_EQ(alert.parent, "mainWindow");
    EXPECT_EQ(find("progressSheet"), nullptr);
}

TEST_F(AppDelegateTest, NotebooksAreImportedInTheModelsOrderWhateverTheTableShows)
{
    closeGate();
    launchWithNotebooks({"A", "B"});
    EXPECT_THAT(shownNames(), ElementsAre("A", "B"));
    click("importButton");
    EXPECT_THAT(notebooksOfRun(), ElementsAre("B", "A"));
    EXPECT_EQ(evernote->activations, 1);
    AlertWatcher alerts;
    gate->open();
    ASSERT_TRUE(alerts.waitFor(1));
}

TEST_F(AppDelegateTest, OnlyCheckedNotebooksAreImportedThoseHiddenByTheSearchToo)
{
    closeGate();
    launchWithNotebooks({"Alpha", "Beta", "Gamma"});
    clickCell(1, NotebooksModel::ImportColumn);
    QTest::keyClicks(find<QLineEdit>("search"), "gam");
    click("importButton");
    EXPECT_THAT(notebooksOfRun(), ElementsAre("Gamma", "Alpha"));
    AlertWatcher alerts;
    gate->open();
    ASSERT_TRUE(alerts.waitFor(1));
}

TEST_F(AppDelegateTest, OnlyTheCheckBoxOfARowReactsToTheMouse)
{
    launchWithNotebooks({"A", "B"});
    clickCell(0, NotebooksModel::NameColumn);
    clickCell(1, NotebooksModel::NumberOfNotesColumn);
    EXPECT_THAT(checkedNames(), ElementsAre("A", "B"));
    clickCell(0, NotebooksModel::ImportColumn);
    EXPECT_THAT(checkedNames(), ElementsAre("B"));
    clickCell(0, NotebooksModel::ImportColumn);
    EXPECT_THAT(checkedNames(), ElementsAre("A", "B"));
}

TEST_F(AppDelegateTest, RowsAreNeverSelected)
{
    launchWithNotebooks({"A", "B"});
    clickCell(0, NotebooksModel::NameColumn);
    clickCell(1, NotebooksModel::ImportColumn);
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_Down);
    QTest::keyClick(&table(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(table().selectionModel()->hasSelection());
    EXPECT_FALSE(app->tableViewShouldSelectRow(0));
    EXPECT_TRUE(app->tableViewShouldTrackCellForTableColumnRow("Import", 0));
    EXPECT_FALSE(app->tableViewShouldTrackCellForTableColumnRow("Name", 0));
    EXPECT_FALSE(selectedObject(app->notebooksController()).has_value());
}

TEST_F(AppDelegateTest, TheFirstOfTheSelectedObjectsIsTheSelectedObject)
{
    launchWithNotebooks({"A", "B"});
    app->notebooksController().setSelectedRows({1, 0});
    ASSERT_TRUE(selectedObject(app->notebooksController()).has_value());
    EXPECT_EQ(selectedObject(app->notebooksController())->name, "B");
}

TEST_F(AppDelegateTest, AClickOnTheHeadOfTheBoxesChecksOrUnchecksAll)
{
    launchWithNotebooks({"A", "B", "C"});
    clickHeadOfBoxes();
    EXPECT_TRUE(checkedNames().isEmpty());
    clickCell(1, NotebooksModel::ImportColumn);
    clickHeadOfBoxes();
    EXPECT_THAT(checkedNames(), ElementsAre("A", "B", "C"));
}

TEST_F(AppDelegateTest, TheSearchFieldShowsTheNotebooksWhoseNamesHoldItsText)
{
    launchWithNotebooks({"Garden", "Work", "Gardening tools"});
    QTest::keyClicks(find<QLineEdit>("search"), "GARD");
    EXPECT_THAT(shownNames(), ElementsAre("Garden", "Gardening tools"));
    clickHeadOfBoxes();
    find<QLineEdit>("search")->clear();
    EXPECT_THAT(checkedNames(), ElementsAre("Work"));
}

TEST_F(AppDelegateTest, EverythingInTheTableIsReachedByTheKeyboard)
{
    launchWithNotebooks({"A", "B"});
    QTest::keyClick(&app->window(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(find<QLineEdit>("search")->hasFocus());
    while (!table().hasFocus())
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(&table(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&table(), Qt::Key_Down);
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_THAT(checkedNames(), ElementsAre("A"));
    QTest::keyClick(&app->window(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(checkedNames().isEmpty());
    QTest::keyClick(&app->window(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_THAT(checkedNames(), ElementsAre("A", "B"));
    // Tab leads on, out of the table.
    QTest::keyClick(&table(), Qt::Key_Tab);
    EXPECT_FALSE(table().hasFocus());
}

TEST_F(AppDelegateTest, TheActionsHaveShortcuts)
{
    closeGate();
    launchWithNotebooks({"A"});
    QTest::keyClick(&app->window(), Qt::Key_O, Qt::ControlModifier);
    ASSERT_TRUE(waitForWidget("openPanel"));
    QTest::keyClick(find("openPanel"), Qt::Key_Escape);
    ASSERT_TRUE(waitUntilGone("openPanel"));
    QTest::keyClick(&app->window(), Qt::Key_Comma, Qt::ControlModifier);
    ASSERT_TRUE(waitForWidget("optionsSheet"));
    QTest::keyClick(find("optionsSheet"), Qt::Key_Escape);
    ASSERT_TRUE(waitUntilGone("optionsSheet"));
    QTest::keyClick(&app->window(), Qt::Key_I, Qt::ControlModifier);
    ASSERT_TRUE(waitForWidget("progressSheet"));
    AlertWatcher alerts;
    gate->open();
    ASSERT_TRUE(alerts.waitFor(1));
}

TEST_F(AppDelegateTest, ReleaseNotesOpenInTheBrowser)
{
    launch();
    app->window().releaseNotesAction().trigger();
    ASSERT_EQ(openedURLs.size(), 1);
    EXPECT_THAT(openedURLs.first().scheme().toStdString(), testing::AnyOf("https", "file"));
}

TEST_F(AppDelegateTest, TheNotebooksCanBeChangedOneByOneAndTheTableFollows)
{
    launchWithNotebooks({"A"});
    app->insertObjectInNotebooksAtIndex({"Z", true, nullptr, 7}, 1);
    EXPECT_EQ(app->countOfNotebooks(), 2);
    EXPECT_THAT(shownNames(), ElementsAre("A", "Z"));
    app->replaceObjectInNotebooksAtIndexWithObject(0, {"Zz", false, nullptr, 1});
    EXPECT_THAT(shownNames(), ElementsAre("Z", "Zz"));
    app->removeObjectFromNotebooksAtIndex(1);
    EXPECT_THAT(shownNames(), ElementsAre("Zz"));
    EXPECT_EQ(app->objectInNotebooksAtIndex(0).name, "Zz");
}

TEST_F(AppDelegateTest, TheModelIsMadeOnFirstUse)
{
    launch();
    EXPECT_EQ(app->countOfNotebooks(), 0);
    app->insertObjectInNotebooksAtIndex({"A", true, nullptr, 0}, 0);
    EXPECT_EQ(app->countOfNotebooks(), 1);
}

TEST_F(AppDelegateTest, CountsWhatIsCheckedInTheStatusLine)
{
    evernote = std::make_shared<test::FakeEvernote>();
    evernote->add("A", 2);
    evernote->add("B", 1);
    launch();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !app->showProgressIndicator(); }));
    EXPECT_EQ(text("status"), "2 notebooks checked, 3 notes");
    clickCell(0, NotebooksModel::ImportColumn);
    EXPECT_EQ(text("status"), "1 notebook checked, 1 note");
}

TEST_F(AppDelegateTest, TheTableSaysItsNameAndWhatEachBoxIsFor)
{
    launchWithNotebooks({"Garden"});
    EXPECT_EQ(table().accessibleName(), "Notebooks");
    EXPECT_EQ(table()
                  .model()
                  ->index(0, NotebooksModel::ImportColumn)
                  .data(Qt::AccessibleTextRole)
                  .toString(),
              "Import “Garden”");
}
