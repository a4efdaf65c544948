// SPDX-License-Identifier: MIT
//
// The window over a folder of exports.
#include "exports/EvernoteExportsFolder.h"

#include "AlertWatcher.h"
#include "WindowFixture.h"

#include <QTableView>

using testing::ElementsAre;

namespace {

class ExportsFolderTest : public WindowFixture {
protected:
    void write(const char* name, const QByteArray& content)
    {
        folder.write(QString("exports/") + name, content);
    }

    void launchOnExports()
    {
        QDir().mkpath(folder.filePath("exports"));
        otherEvernote = std::make_shared<EvernoteExportsFolder>(folder.filePath("exports"));
        launch();
    }

    void waitForNotebooks() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !app->showProgressIndicator(); }, 15000));
    }

    // A cell of the row of that notebook.
    [[nodiscard]] QModelIndex cell(const QString& name, int column) const
    {
        const QAbstractItemModel& model = *find<QTableView>("notebooks")->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            const QModelIndex index = model.index(row, NotebooksModel::NameColumn);
            if (index.data().toString().startsWith(name))
                return model.index(row, column);
        }
        ADD_FAILURE() << qPrintable(name);
        return {};
    }

    [[nodiscard]] bool isChecked(const QString& name) const
    {
        return cell(name, NotebooksModel::ImportColumn).data(Qt::CheckStateRole).toInt() ==
               Qt::Checked;
    }
};

} // namespace

TEST_F(ExportsFolderTest, NotebooksOfAFolderAreListedAndImported)
{
    write("Garden.enex", test::enexWithNotes(2));
    write("Work/Ideas.enex", test::enexWithNotes(1));
    launchOnExports();
    waitForNotebooks();
    EXPECT_EQ(cell("Work/Ideas", NotebooksModel::NumberOfNotesColumn).data().toString(), "1");
    EXPECT_TRUE(isChecked("Garden"));
    click("importButton");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !app->exportPanel().isRunning(); }, 60000));
    EXPECT_TRUE(QFileInfo::exists(folder.filePath("Library/Garden/Note 2.qlnote")));
    EXPECT_TRUE(QFileInfo::exists(folder.filePath("Library/Work-Ideas/Note 1.qlnote")));
}

TEST_F(ExportsFolderTest, AnUnreadableNotebookIsShownUncheckedWithItsReason)
{
    write("Broken.enex", "<en-export><note></note><note>");
    write("Good.enex", test::enexWithNotes(1));
    launchOnExports();
    waitForNotebooks();
    const QModelIndex name = cell("Broken", NotebooksModel::NameColumn);
    EXPECT_EQ(name.data().toString(), "Broken (cannot be read)");
    EXPECT_FALSE(name.data(Qt::ToolTipRole).toString().isEmpty());
    EXPECT_EQ(name.data(Qt::AccessibleDescriptionRole), name.data(Qt::ToolTipRole));
    EXPECT_EQ(cell("Broken", NotebooksModel::NumberOfNotesColumn).data().toString(), "");
    EXPECT_FALSE(isChecked("Broken"));
    EXPECT_TRUE(isChecked("Good"));
    // Neither does "all" mean it.
    app->notebooksController().setImportOfShown(true);
    EXPECT_FALSE(isChecked("Broken"));
    EXPECT_EQ(app->notebooksController().importState(), Qt::Checked);
    click("importButton");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !app->exportPanel().isRunning(); }, 60000));
    EXPECT_TRUE(QFileInfo::exists(folder.filePath("Library/Good/Note 1.qlnote")));
    EXPECT_FALSE(QFileInfo::exists(folder.filePath("Library/Broken")));
}

TEST_F(ExportsFolderTest, WhoImportsAnUnreadableNotebookAllTheSameHearsTheReason)
{
    write("Broken.enex", "<en-export><note>");
    launchOnExports();
    waitForNotebooks();
    const QString reason =
        cell("Broken", NotebooksModel::NameColumn).data(Qt::ToolTipRole).toString();
    NotebooksController& notebooks = app->notebooksController();
    notebooks.setData(cell("Broken", NotebooksModel::ImportColumn), Qt::Checked,
                      Qt::CheckStateRole);
    EXPECT_TRUE(isChecked("Broken"));
    AlertWatcher alerts;
    click("importButton");
    ASSERT_TRUE(alerts.waitFor(1));
    EXPECT_EQ(alerts.alerts()[0].informativeText, reason);
    ASSERT_TRUE(waitForWidget("dismiss"));
    click("dismiss");
}

TEST_F(ExportsFolderTest, AnEmptyFolderIsWatchedUntilAFileAppears)
{
    launchOnExports();
    QTest::qWait(1300);
    EXPECT_TRUE(app->showProgressIndicator());
    write("New.enex", test::enexWithNotes(1));
    waitForNotebooks();
    EXPECT_EQ(app->countOfNotebooks(), 1);
}

TEST_F(ExportsFolderTest, FilesOfAnyAgePassTheCheckAtTheLaunch)
{
    for (const char* const version : {"4.x", "3.0", "Evernote Mac 4.1 (1)", "10.104.3", "6.x"}) {
        write("a.enex", QByteArray("<en-export application=\"Evernote\" version=\"") + version +
                            "\"><note/></en-export>");
        AlertWatcher alerts;
        launchOnExports();
        EXPECT_TRUE(alerts.alerts().empty()) << version;
        waitForNotebooks();
        app = nullptr;
    }
}
