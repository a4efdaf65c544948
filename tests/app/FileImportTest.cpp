// SPDX-License-Identifier: MIT
#include "AlertWatcher.h"
#include "WindowFixture.h"
#include "app/EnexFiles.h"

#include <QDropEvent>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QTableWidget>

#include <ctime>

using testing::ElementsAre;

namespace {

class FileImportTest : public WindowFixture {
protected:
    [[nodiscard]] bool drop(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        const QPoint place = app->window().rect().center();
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QApplication::sendEvent(&app->window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&app->window(), &drop);
        return true;
    }

    [[nodiscard]] QUrl file(const QString& name, const QByteArray& bytes)
    {
        return QUrl::fromLocalFile(folder.write(name, bytes));
    }

    [[nodiscard]] QStringList libraryFolders() const
    {
        return QDir(library->directory()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    }

    void chooseInPanel(const QString& path) const
    {
        auto* const panel = find<QFileDialog>("openPanel");
        ASSERT_NE(panel, nullptr);
        auto* const name = panel->findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(name, nullptr);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    }
};

} // namespace

TEST_F(FileImportTest, AChosenFileIsImportedIntoTheLibrary)
{
    const QUrl notes = file("My Notes.enex", test::enexWithNotes(3));
    launch();
    click("chooseFile");
    ASSERT_TRUE(waitForWidget("openPanel"));
    chooseInPanel(notes.toLocalFile());
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_EQ(text("importedNotes"), "3 notes were imported.");
    EXPECT_THAT(libraryFolders(), ElementsAre("My Notes"));
    click("done");
    EXPECT_TRUE(waitUntilGone("resultSheet"));
}

TEST_F(FileImportTest, TheOpenPanelIsASheetThatOffersEnexFilesOnly)
{
    launch();
    click("importFileButton");
    auto* const panel = find<QFileDialog>("openPanel");
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->windowModality(), Qt::WindowModal);
    EXPECT_EQ(panel->parentWidget(), &app->window());
    EXPECT_THAT(panel->nameFilters(), ElementsAre("Evernote export files (*.enex)"));
    EXPECT_EQ(panel->fileMode(), QFileDialog::ExistingFile);
    QTest::keyClick(panel, Qt::Key_Escape);
}

TEST_F(FileImportTest, ACancelledOpenPanelDoesNothing)
{
    launch();
    click("importFileButton");
    QTest::keyClick(find("openPanel"), Qt::Key_Escape);
    ASSERT_TRUE(waitUntilGone("openPanel"));
    QTest::qWait(100);
    EXPECT_EQ(find("progressSheet"), nullptr);
    EXPECT_EQ(find("resultSheet"), nullptr);
}

TEST_F(FileImportTest, DroppedFilesAreImportedOneAfterAnother)
{
    const QUrl first = file("First.enex", test::enexWithNotes(1));
    const QUrl second = file("Second.ENEX", test::enexWithNotes(2));
    launch();
    ASSERT_TRUE(drop({first, second}));
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_EQ(text("importedNotes"), "3 notes were imported.");
    EXPECT_THAT(libraryFolders(), ElementsAre("First", "Second"));
}

TEST_F(FileImportTest, ADroppedFolderGivesTheEnexFilesInIt)
{
    folder.write("Exports/b.enex", test::enexWithNotes(1));
    folder.write("Exports/a.enex", test::enexWithNotes(1));
    folder.write("Exports/2023/old.enex", test::enexWithNotes(1));
    folder.write("Exports/picture.png", "no notes");
    launch();
    ASSERT_TRUE(drop({QUrl::fromLocalFile(folder.filePath("Exports"))}));
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_THAT(libraryFolders(), ElementsAre("a", "b", "old"));
}

TEST_F(FileImportTest, AFolderWithoutEnexFilesIsAnsweredByAnAlert)
{
    folder.write("Empty/readme.txt", "nothing");
    launch();
    AlertWatcher alerts;
    ASSERT_TRUE(drop({QUrl::fromLocalFile(folder.filePath("Empty"))}));
    ASSERT_TRUE(alerts.waitFor(1));
    EXPECT_EQ(alerts.alerts().front().text, "There is no ENEX file to import.");
    EXPECT_EQ(alerts.alerts().front().modality, Qt::WindowModal);
}

TEST_F(FileImportTest, WhatIsNeitherEnexNorFolderIsNotAcceptedForADrop)
{
    launch();
    EXPECT_FALSE(drop({file("song.mp3", "la")}));
    EXPECT_FALSE(drop({QUrl(QStringLiteral("https://example.org/notes.enex"))}));
}

TEST_F(FileImportTest, LinksToFoldersAreNotFollowedAndAFileGivenTwiceComesOnce)
{
    const QUrl inside = file("Exports/notes.enex", "");
    QFile::link(folder.filePath("Exports"), folder.filePath("Exports/round"));
    EXPECT_THAT(enexFilesAmong({QUrl::fromLocalFile(folder.filePath("Exports")), inside}),
                ElementsAre(inside));
}

TEST_F(FileImportTest, ArgumentsAreRelativeToTheCurrentFolder)
{
    EXPECT_THAT(urlsOfArguments({"a b.enex", "/tmp/x.enex", "file:///tmp/y%20z.enex"}),
                ElementsAre(QUrl::fromLocalFile(QDir::currentPath() + "/a b.enex"),
                            QUrl::fromLocalFile("/tmp/x.enex"),
                            QUrl::fromLocalFile("/tmp/y z.enex")));
}

TEST_F(FileImportTest, AnArgumentThatIsNotThereIsAnErrorOfItsRun)
{
    launch();
    AlertWatcher alerts;
    app->openURLs({QUrl::fromLocalFile(folder.filePath("missing.enex"))});
    ASSERT_TRUE(alerts.waitFor(1));
    EXPECT_EQ(alerts.alerts().front().text, "An error occurred while exporting.");
}

TEST_F(FileImportTest, TheResultTellsWhichNotesWereSkippedAndWhy)
{
    const QByteArray notes =
        "<note><title>Good</title><content><![CDATA[<en-note>Text</en-note>]]></content></note>"
        "<note><title>Without a text</title><content><![CDATA[]]></content></note>";
    launch();
    app->openURLs({file("Mixed.enex", test::enexWith(notes))});
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_EQ(text("importedNotes"), "1 note was imported.");
    EXPECT_EQ(text("summary"), "1 note was skipped.");
    auto* const table = find<QTableWidget>("skippedNotes");
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(table->item(0, 0)->text(), "Without a text");
    EXPECT_FALSE(table->item(0, 1)->text().isEmpty());
}

TEST_F(FileImportTest, TheResultOpensTheLogAndTheLibrary)
{
    launch();
    app->openURLs({file("Notes.enex", test::enexWithNotes(1))});
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_EQ(find("skippedNotes"), nullptr);
    EXPECT_EQ(text("summary"), "Everything came across.");
    click("openLog");
    click("openLibrary");
    ASSERT_EQ(openedURLs.size(), 2);
    EXPECT_EQ(openedURLs[0].fileName(), "Evernote Export.log");
    EXPECT_TRUE(QFileInfo::exists(openedURLs[0].toLocalFile()));
    EXPECT_EQ(openedURLs[1].toLocalFile(), library->directory());
}

TEST_F(FileImportTest, AfterAFailedFileTheNextOneIsOneButtonAway)
{
    launch();
    AlertWatcher alerts;
    app->openURLs(
        {file("Bad.enex", "<en-export><note>"), file("Good.enex", test::enexWithNotes(2))});
    ASSERT_TRUE(alerts.waitFor(1));
    ASSERT_TRUE(waitForWidget("dismiss"));
    EXPECT_EQ(find<QAbstractButton>("dismiss")->text(), "Next File");
    click("dismiss");
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_EQ(text("importedNotes"), "2 notes were imported.");
    auto* const table = find<QTableWidget>("skippedNotes");
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->item(0, 0)->text(), "Bad.enex");
}

TEST_F(FileImportTest, TheWindowAnswersAtOnceWhileALargeFileIsConverted)
{
    // 100 MB: 250 notes with an attachment of 300 kB each, in base64.
    const QByteArray attachment = QByteArray(300 * 1000, 'x').toBase64();
    QByteArray notes;
    for (int number = 0; number < 250; ++number)
        notes += "<note><title>Note " + QByteArray::number(number) +
                 "</title><content><![CDATA[<en-note><div>Text</div></en-note>]]></"
                 "content><resource><data "
                 "encoding=\"base64\">" +
                 attachment + "</data><mime>application/pdf</mime></resource></note>\n";
    const QUrl large = file("Large.enex", test::enexWith(notes));
    launch();
    app->openURLs({large});
    // Two clocks: how long the window was busy itself, and how long a person waited, in
    // milliseconds. The second also counts what else a busy machine does.
    const auto ownTime = [] {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time.tv_sec * 1000 + time.tv_nsec / 1000000;
    };
    qint64 longestWork = 0;
    qint64 longestWait = 0;
    auto lastOwnTime = ownTime();
    QElapsedTimer sinceLastAnswer;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        longestWait = std::max(longestWait, sinceLastAnswer.restart());
        longestWork =
            std::max<qint64>(longestWork, ownTime() - std::exchange(lastOwnTime, ownTime()));
    });
    sinceLastAnswer.start();
    timer.start(5);
    ASSERT_TRUE(QTest::qWaitFor([this] { return find("resultSheet") != nullptr; }, 120000));
    EXPECT_EQ(text("importedNotes"), "250 notes were imported.");
    RecordProperty("longestWorkInMilliseconds", static_cast<int>(longestWork));
    RecordProperty("longestWaitInMilliseconds", static_cast<int>(longestWait));
    EXPECT_LT(longestWork, 100);
    EXPECT_LT(longestWait, 1000);
}

TEST_F(FileImportTest, TheProgramImportsAFileGivenAsArgumentWithoutASessionBus)
{
    const QUrl notes = file("Given.enex", test::enexWithNotes(2));
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", folder.path());
    environment.insert("XDG_CONFIG_HOME", folder.filePath("config"));
    environment.insert("XDG_DATA_HOME", folder.filePath("data"));
    environment.insert("XDG_CACHE_HOME", folder.filePath("cache"));
    environment.remove("DBUS_SESSION_BUS_ADDRESS");
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.setWorkingDirectory(folder.path());
    program.start(VUPUGE_PROGRAM, {"Given.enex"});
    ASSERT_TRUE(program.waitForStarted());
    const QString imported = folder.filePath("Documents/Quillery Library/Given");
    EXPECT_TRUE(QTest::qWaitFor(
        [&imported] { return QFileInfo::exists(imported + "/Note 2.qlnote"); }, 20000));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.terminate();
    program.waitForFinished();
}

TEST_F(FileImportTest, TheProgramTellsItsVersion)
{
    QProcess program;
    program.start(VUPUGE_PROGRAM, {"--version"});
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardOutput(), "vupuge 3.5.3\n");
}
