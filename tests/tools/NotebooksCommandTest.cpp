// SPDX-License-Identifier: MIT
//
// Imports of notebooks from the command line.
#include "tools/CommandFixture.h"

#include <QDir>

#include <csignal>

namespace {

using test::CommandResult;
using test::text;

class NotebooksCommandTest : public test::CommandTest {
protected:
    void SetUp() override { QDir().mkpath(path("exports")); }

    // A notebook of the folder "exports".
    void notebook(const char* name, const QByteArray& notes) const
    {
        m_folder.write(text("exports/") + text(name) + text(".enex"),
                       "<en-export version=\"10.1\">" + notes + "</en-export>");
    }

    // The program in a home of its own, without a session bus.
    CommandResult runOnExports(const QStringList& arguments) const
    {
        return run(QStringList{text("--evernote"), text("exports")} + arguments);
    }

    [[nodiscard]] QStringList folderNames() const
    {
        QStringList names;
        for (const QVariant& folder : entities(path("out"), "Folder"))
            names += folder.toMap().value(text("name")).toString();
        names.sort();
        return names;
    }
};

TEST_F(NotebooksCommandTest, NotebooksAreListedWithTheirCountsAndReasons)
{
    notebook("b", note("1") + note("2"));
    notebook("Stack/a", note("1"));
    notebook("empty", {});
    m_folder.write(text("exports/broken.enex"), "no XML");
    const CommandResult result = runOnExports({text("--list-notebooks")});
    EXPECT_EQ(result.status, 0);
    const QStringList lines = result.output.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], text("b: 2 notes"));
    EXPECT_TRUE(lines[1].startsWith(text("broken: cannot be read: "))) << qPrintable(lines[1]);
    EXPECT_EQ(lines[2], text("empty: 0 notes"));
    EXPECT_EQ(lines[3], text("Stack/a: 1 note"));
}

TEST_F(NotebooksCommandTest, AllNotebooksAreImportedOneRunEach)
{
    notebook("b", note("1") + note("2"));
    notebook("Stack/a", note("1"));
    const CommandResult result = runOnExports({text("--notebooks"), text("--files-folder"),
                                               text("out"), text("--report"), text("report.json")});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(result.output.contains(text("Importing b: 2 notes")));
    EXPECT_TRUE(result.output.contains(text("Importing Stack/a: 1 note")));
    EXPECT_EQ(result.lastLine(), text("3 notes: 3 became items, none were skipped."));
    EXPECT_EQ(folderNames(), QStringList({text("Stack-a"), text("b")}));
    EXPECT_EQ(entities(path("out"), "Item").size(), 3);
    ASSERT_EQ(runs().size(), 2);
    EXPECT_EQ(runs()[1].toObject().value(text("notebook")), text("Stack/a"));
    EXPECT_FALSE(runs()[1].toObject().contains(text("file")));
}

TEST_F(NotebooksCommandTest, NamedNotebooksAreImportedOnceInTheOrderOfTheirNames)
{
    notebook("a", note("1"));
    notebook("b", note("1"));
    notebook("c", note("1"));
    const CommandResult result =
        runOnExports({text("--files-folder"), text("out"), text("--report"), text("report.json"),
                      text("--notebooks"), text("c"), text("a"), text("c")});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(folderNames(), QStringList({text("a"), text("c")}));
    ASSERT_EQ(runs().size(), 2);
    EXPECT_EQ(runs()[0].toObject().value(text("notebook")), text("c"));
}

TEST_F(NotebooksCommandTest, AnUnknownNameIsWrongUsageAndNothingIsDone)
{
    notebook("a", note("1"));
    const CommandResult result =
        runOnExports({text("--files-folder"), text("out"), text("--notebooks"), text("a"),
                      text("A"), text("x\ny")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains(text("There is no notebook \"A\", \"x")))
        << qPrintable(result.errors);
    EXPECT_FALSE(exists("out"));
}

TEST_F(NotebooksCommandTest, WithoutNotebooksThereIsNothingToImport)
{
    const CommandResult result = runOnExports({text("--notebooks")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains(text("There is no notebook to import.")));
    const CommandResult list = runOnExports({text("--list-notebooks")});
    EXPECT_EQ(list.status, 0);
    EXPECT_TRUE(list.output.isEmpty());
}

TEST_F(NotebooksCommandTest, AFileThatCannotBeReadFailsAndTheOthersAreImported)
{
    notebook("a", note("1"));
    m_folder.write(text("exports/broken.enex"), "<en-export><note>");
    notebook("c", note("1"));
    const CommandResult result =
        runOnExports({text("--notebooks"), text("--library"), text("library"), text("--report"),
                      text("report.json")});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("vupuge-import: broken: ")));
    EXPECT_EQ(result.lastLine(), text("2 notes: 2 became items, none were skipped."));
    EXPECT_TRUE(exists("library/a/1.qlnote"));
    EXPECT_TRUE(exists("library/c/1.qlnote"));
    EXPECT_EQ(runs()[1].toObject().value(text("outcome")), text("failed"));
}

TEST_F(NotebooksCommandTest, ASkippedNoteIsToldWithItsNotebook)
{
    notebook("a", note("1") + "<note><title>bad</title><content><p>x</p></content></note>");
    const QStringList arguments{text("--notebooks"), text("--library"),   text("library"),
                                text("--report"),    text("report.json"), text("--strict")};
    const CommandResult result = runOnExports(arguments);
    EXPECT_EQ(result.status, 3) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("2 notes: 1 became an item, 1 was skipped."));
    const QJsonArray skipped = report().value(text("skipped")).toArray();
    ASSERT_EQ(skipped.size(), 1);
    EXPECT_EQ(skipped[0].toObject().value(text("title")), text("bad"));
    EXPECT_EQ(skipped[0].toObject().value(text("notebook")), text("a"));
}

TEST_F(NotebooksCommandTest, TheSettingChoosesTheRunOverPages)
{
    notebook("a", note("1"));
    notebook("b", note("2",
                       "<en-note><en-media type=\"application/pdf\" "
                       "hash=\"c4ca4238a0b923820dcc509a6f75849b\"/></en-note>",
                       "<resource><data encoding=\"base64\">MQ==</data><mime>application/pdf</mime>"
                       "</resource>"));
    const CommandResult result =
        runOnExports({text("--notebooks"), text("--files-folder"), text("out"), text("--set"),
                      text("UseHTMLExport=YES")});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(exists("out/Evernote/a/HTML/1.html/1.html"));
    EXPECT_TRUE(exists("out/Evernote/a/1.qlnote"));
    // The attachment stays where it was exported, and the manifest knows where that is.
    int attachments = 0;
    for (const QVariant& entry : entities(path("out"), "Item")) {
        const QVariantMap item = entry.toMap();
        const QString file = item.value(text("absoluteFilename")).toString();
        EXPECT_TRUE(QFileInfo::exists(file)) << qPrintable(file);
        attachments += item.value(text("itemType")).toInt() == 2 ? 1 : 0;
    }
    EXPECT_EQ(attachments, 1);
    EXPECT_TRUE(result.output.contains(text("Attachments: 1 (1 shown).")));
}

TEST_F(NotebooksCommandTest, TheFolderOfTheSettingIsEvernoteWhereThereIsNone)
{
    notebook("a", note("1"));
    const CommandResult result = run({text("--list-notebooks"), text("--set"),
                                      text("EvernoteExportsFolder=") + path("exports")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, text("a: 1 note\n"));
    const CommandResult none = run(
        {text("--list-notebooks"), text("--set"), text("EvernoteExportsFolder=") + path("none")});
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.errors.contains(text("Evernote is not installed, and there is no folder ")));
}

TEST_F(NotebooksCommandTest, OptionsThatContradictEachOtherAreWrongUsage)
{
    for (const QStringList& arguments : {
             QStringList{text("--notebooks"), text("--list-notebooks")},
             QStringList{text("--list-notebooks"), text("a")},
             QStringList{text("--notebooks"), text("--exact")},
             QStringList{text("--evernote"), text("exports"), text("a.enex")},
             QStringList{text("--evernote"), text(""), text("--notebooks")},
         }) {
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.status, 2) << qPrintable(arguments.join(u' '));
        EXPECT_FALSE(result.errors.isEmpty());
    }
    const CommandResult noFolder = run({text("--evernote"), text("none"), text("--notebooks")});
    EXPECT_EQ(noFolder.status, 1);
    EXPECT_TRUE(noFolder.errors.contains(text("is no folder")));
}

TEST_F(NotebooksCommandTest, ExportsAreNeverReplacedByWhatIsMadeOfThem)
{
    // The place where things would be laid out, and its own.
    m_folder.write(text("out/Evernote/a.enex"), "<en-export>" + note("1") + "</en-export>");
    const CommandResult result = run({text("--evernote"), text("out/Evernote"), text("--notebooks"),
                                      text("--files-folder"), text("out")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(exists("out/Evernote/a.enex"));
}

TEST_F(NotebooksCommandTest, HostileNamesDoNotReachTheTerminalAsTheyAre)
{
    m_folder.write(text("exports/a\x1B[31mb.enex"), "<en-export/>");
    const CommandResult result = runOnExports({text("--list-notebooks")});
    EXPECT_EQ(result.status, 0);
    EXPECT_FALSE(result.output.contains(QChar(0x1B)));
}

TEST_F(NotebooksCommandTest, AnInterruptedImportEndsAsACancellation)
{
    QByteArray notes;
    for (int number = 0; number < 1000; ++number)
        notes += note("n");
    notebook("a", notes);
    notebook("b", note("1"));
    for (const char* const setting : {"UseHTMLExport=NO", "UseHTMLExport=YES"}) {
        QProcess process;
        start(process, {text("--evernote"), text("exports"), text("--notebooks"), text("--library"),
                        text("library"), text("--report"), text("report.json"), text("--set"),
                        text(setting)});
        QByteArray output;
        while (!output.contains(" of 1000 notes") && process.waitForReadyRead(60000))
            output += process.readAllStandardOutput();
        ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
        ASSERT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitCode(), 1) << setting;
        ASSERT_EQ(runs().size(), 2);
        EXPECT_EQ(runs()[0].toObject().value(text("outcome")), text("cancelled")) << setting;
        EXPECT_EQ(runs()[1].toObject().value(text("outcome")), text("cancelled")) << setting;
        EXPECT_FALSE(exists("library/a"));
    }
}

} // namespace
