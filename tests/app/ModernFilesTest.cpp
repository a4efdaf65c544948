// SPDX-License-Identifier: MIT
//
// Files of today's Evernote in the window: picked, dropped, and what the person is told of them.
#include "WindowFixture.h"
#include "app/ContentSummary.h"
#include "platform/defaults/UserDefaults.h"

#include <QCheckBox>
#include <QDirIterator>
#include <QFileDialog>
#include <QLineEdit>
#include <QTableWidget>

using platform::UserDefaults;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QByteArray modernNotes =
    "<en-export application=\"Evernote\" version=\"10.59.5\">\n"
    "  <note>\n    <title>Plan</title>\n    <created>20240501T120000Z</created>\n"
    "    <tag>garden</tag>\n    <content>\n"
    "      <![CDATA[<en-note><div>Text</div></en-note>]]>\n    </content>\n"
    "    <task>\n      <title>Dig</title>\n      <taskStatus>open</taskStatus>\n    </task>\n"
    "  </note>\n</en-export>\n";

class ModernFilesTest : public WindowFixture {
protected:
    ~ModernFilesTest() override
    {
        static_cast<void>(UserDefaults::standard().removeObject(QStringLiteral("ModernENEX")));
    }

    [[nodiscard]] QString file(const char* name, const QByteArray& bytes)
    {
        return folder.write(QLatin1String(name), bytes);
    }

    void openPanel()
    {
        launch();
        click("chooseFile");
        ASSERT_TRUE(waitForWidget("openPanel"));
    }
    [[nodiscard]] QCheckBox& readWhole() { return *find<QCheckBox>("readWhole"); }
    // As when the person walks through the list of files.
    void lookAt(const QString& path) { Q_EMIT find<QFileDialog>("openPanel")->currentChanged(path); }
    void choose(const QString& path)
    {
        auto* const name = find("openPanel")->findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(name, nullptr);
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
        ASSERT_TRUE(waitForWidget("resultSheet"));
    }

    // Whether the one note's task came across as a checkbox.
    [[nodiscard]] bool taskCameAcross() const
    {
        QDirIterator files(library->directory(), {"TXT.rtf"}, QDir::Files,
                           QDirIterator::Subdirectories);
        return files.hasNext() && test::readFile(files.next()).contains("\\u9744");
    }

    [[nodiscard]] QStringList remarks() const
    {
        QStringList texts;
        if (const auto* const table = find<QTableWidget>("skippedNotes")) {
            for (int row = 0; row < table->rowCount(); ++row)
                texts += table->item(row, 1)->text();
        }
        return texts;
    }
};

} // namespace

TEST_F(ModernFilesTest, TheChoiceIsPresetByTheHeaderOfEachFileThatIsLookedAt)
{
    const QString modern = file("Modern.enex", modernNotes);
    const QString classic = file("Classic.enex", test::enexWithNotes(1));
    openPanel();
    EXPECT_FALSE(readWhole().isChecked());
    lookAt(modern);
    EXPECT_TRUE(readWhole().isChecked());
    lookAt(classic);
    EXPECT_FALSE(readWhole().isChecked());
    lookAt(folder.path());
    EXPECT_FALSE(readWhole().isChecked());
    lookAt(modern);
    EXPECT_TRUE(readWhole().isChecked());
    QTest::keyClick(find("openPanel"), Qt::Key_Escape);
}

TEST_F(ModernFilesTest, TheChoiceIsMadeForEveryFileWhereTheSettingIsOn)
{
    UserDefaults::standard().setOverride(QStringLiteral("ModernENEX"), true);
    const QString classic = file("Classic.enex", test::enexWithNotes(1));
    openPanel();
    EXPECT_TRUE(readWhole().isChecked());
    lookAt(classic);
    EXPECT_TRUE(readWhole().isChecked());
    QTest::keyClick(find("openPanel"), Qt::Key_Escape);
}

TEST_F(ModernFilesTest, AModernFileThatIsPickedByNameIsReadWhole)
{
    const QString modern = file("Modern.enex", modernNotes);
    openPanel();
    choose(modern);
    EXPECT_TRUE(taskCameAcross());
    EXPECT_THAT(remarks(), IsEmpty());
    EXPECT_EQ(text("summary"), "Everything came across.");
    EXPECT_EQ(text("contentCounts"), "Notes: 1 (1 imported)\nTasks: 1 (1 as to-do lines)");
}

TEST_F(ModernFilesTest, AFileThatIsReadAsItStandsAgainstItsHeaderTellsWhatItLost)
{
    const QString modern = file("Modern.enex", modernNotes);
    openPanel();
    lookAt(modern);
    QTest::mouseClick(&readWhole(), Qt::LeftButton, {}, QPoint(8, readWhole().height() / 2));
    ASSERT_FALSE(readWhole().isChecked());
    choose(modern);
    EXPECT_FALSE(taskCameAcross());
    ASSERT_EQ(remarks().size(), 3);
    EXPECT_TRUE(remarks().at(2).contains("ModernENEX"));
    EXPECT_EQ(text("summary"), "Not everything that the files hold came across.");
    EXPECT_EQ(text("contentCounts"), "Notes: 1 (1 imported)\nTasks: 1 (1 left out)");
}

TEST_F(ModernFilesTest, ADroppedFileIsRecognizedAndThePersonIsTold)
{
    const QString modern = file("Modern.enex", modernNotes);
    launch();
    app->openURLs({QUrl::fromLocalFile(modern)});
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_TRUE(taskCameAcross());
    ASSERT_EQ(remarks().size(), 1);
    EXPECT_TRUE(remarks().first().startsWith("The file is of today's Evernote and was read whole"));
    EXPECT_EQ(text("summary"), "Everything came across.");
}

TEST_F(ModernFilesTest, ADroppedFileIsReadAsItStandsWhereThePersonHasDecidedSo)
{
    ASSERT_TRUE(UserDefaults::standard().setObject(QStringLiteral("ModernENEX"), false));
    const QString modern = file("Modern.enex", modernNotes);
    launch();
    app->openURLs({QUrl::fromLocalFile(modern)});
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_FALSE(taskCameAcross());
    EXPECT_EQ(remarks().size(), 3);
}

TEST_F(ModernFilesTest, AClassicFileIsNothingToTalkAbout)
{
    launch();
    app->openURLs({QUrl::fromLocalFile(file("Classic.enex", test::enexWithNotes(2)))});
    ASSERT_TRUE(waitForWidget("resultSheet"));
    EXPECT_THAT(remarks(), IsEmpty());
    EXPECT_EQ(text("contentCounts"), "Notes: 2 (2 imported)");
}

TEST(ContentSummaryTest, ThePartsOfALineMakeItsWhole)
{
    ImportOutcome imported;
    imported.end = ImportOutcome::End::Imported;
    imported.report.notes = 5;
    imported.report.items = 3;
    imported.report.skipped.resize(1);
    NoteCounts& counts = imported.report.counts;
    counts.resources = 10;
    counts.shownResources = 4;
    counts.keptResources = 3;
    counts.leftOutResources = 2;
    counts.resourcesOfSkippedNotes = 1;
    counts.missingAttachments = 6;
    counts.encryptedPassages = 7;
    counts.tasks = 3;
    counts.taskLines = counts.leftOutTasks = counts.tasksOfSkippedNotes = 1;
    counts.links = 9;
    counts.resolvedLinks = 4;
    ImportOutcome failed = imported;
    failed.end = ImportOutcome::End::Failed;
    EXPECT_THAT(contentSummary({imported, failed}),
                ElementsAre("Notes: 10 (3 imported; 2 skipped; 5 not imported)",
                            "Attachments: 10 (4 shown; 3 kept at the end of their notes; 2 left "
                            "out; 1 in skipped notes)",
                            "Attachments that the files do not hold: 6", "Encrypted passages: 7",
                            "Tasks: 3 (1 as to-do lines; 1 left out; 1 in skipped notes)",
                            "Links between notes: 9 (4 lead to imported notes; 5 as they were)"));
    EXPECT_THAT(contentSummary({}), IsEmpty());
}
