// SPDX-License-Identifier: MIT
#include "tools/CommandFixture.h"

#include <unistd.h>

namespace {

using test::CommandResult;
using test::text;

class ImportCommandTest : public test::CommandTest {};

TEST_F(ImportCommandTest, LaysFilesManifestAndLogOutInAFolder)
{
    const CommandResult result = runIntoOut({file("My Notes.enex", note("One") + note("Two"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_EQ(result.lastLine(), text("2 notes: 2 became items, none were skipped."));
    EXPECT_TRUE(exists("out/Evernote Export.log"));
    EXPECT_TRUE(exists("out/Evernote/My Notes/One.qlnote/TXT.rtf"));
    EXPECT_EQ(entities(path("out"), "Item").size(), 2);
    EXPECT_TRUE(result.errors.isEmpty());
}

TEST_F(ImportCommandTest, ImportsIntoALibraryAndLeavesNoFilesFolder)
{
    const CommandResult result = run({text("--library"), text("lib"), file("My Notes.enex", note("One"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(exists("lib/My Notes/One.qlnote/TXT.rtf"));
    EXPECT_TRUE(result.output.contains(path("lib/My Notes")));
    const CommandResult again = run({text("--library"), text("lib"), path("My Notes.enex")});
    EXPECT_EQ(again.status, 0);
    EXPECT_TRUE(exists("lib/My Notes 1/One.qlnote/TXT.rtf"));
}

TEST_F(ImportCommandTest, TheLibraryIsTheSettingsWhereNoneIsNamed)
{
    const QString setting = text("QuilleryLibraryFolder=") + path("set");
    const CommandResult result = run({text("--set"), setting, file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 0) << qPrintable(result.errors);
    EXPECT_TRUE(exists("set/A/One.qlnote"));
}

TEST_F(ImportCommandTest, StrictTurnsSkippedNotesIntoAnExitStatus)
{
    EXPECT_EQ(runIntoOut({text("--strict"), file("A.enex", note("Good") + note("Bad", ""))}).status, 3);
    EXPECT_EQ(runIntoOut({text("--strict"), file("B.enex", note("Good"))}).status, 0);
}

TEST_F(ImportCommandTest, BrokenFilesFailWithAMessageThatNamesThem)
{
    m_folder.write(text("empty.enex"), "");
    m_folder.write(text("not xml.enex"), "plain text");
    m_folder.write(text("truncated.enex"), "<en-export><note><title>A");
    m_folder.write(text("tail.enex"), "<en-export></en-export>tail");
    for (const char* name : {"empty.enex", "not xml.enex", "truncated.enex", "tail.enex"}) {
        const CommandResult result = runIntoOut({text("--report"), text("report.json"), text(name)});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_TRUE(result.errors.contains(text(name))) << qPrintable(result.errors);
        EXPECT_EQ(runs()[0].toObject().value(text("outcome")).toString(), text("failed")) << name;
        EXPECT_FALSE(exists("out/Evernote/Evernote.qllibxml")) << name;
        EXPECT_TRUE(m_folder.read(text("out/Evernote Export.log")).contains("Error counting notes: "))
            << name;
    }
}

TEST_F(ImportCommandTest, AFileThatBreaksInTheMiddleIsReportedWithLineAndColumn)
{
    // The header takes the first line.
    const QByteArray good = note("One") + "\n";
    const CommandResult result
        = runIntoOut({text("--report"), text("report.json"),
                      file("A.enex", good.repeated(499) + "<note><title>Broken</note>\n" + good.repeated(500))});
    EXPECT_EQ(result.status, 1);
    const QString reason = runs()[0].toObject().value(text("error")).toObject().value(text("text")).toString();
    EXPECT_TRUE(reason.contains(text(" at line 501, column "))) << qPrintable(reason);
    EXPECT_TRUE(result.errors.contains(text("A.enex: ") + reason)) << qPrintable(result.errors);
    EXPECT_FALSE(exists("out/Evernote"));
}

TEST_F(ImportCommandTest, AFileThatCannotBeReadFailsWithoutTouchingTheEarlierImport)
{
    ASSERT_EQ(runIntoOut({file("A.enex", note("One"))}).status, 0);
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(text("folder.enex")));
    const QStringList before = m_folder.tree();
    for (const char* name : {"missing.enex", "folder.enex", "/dev/null"}) {
        const CommandResult result = runIntoOut({text(name)});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_TRUE(result.errors.contains(text(name))) << qPrintable(result.errors);
        EXPECT_EQ(result.lastLine(), text("0 notes: 0 became items, none were skipped."));
        EXPECT_EQ(m_folder.tree(), before) << name;
    }
}

TEST_F(ImportCommandTest, AFileThatCannotBeReadStandsInTheReport)
{
    const QStringList options{text("--library"), text("lib"), text("--report"), text("report.json")};
    EXPECT_EQ(run(options + QStringList{text("missing.enex")}).status, 1);
    ASSERT_EQ(runs().size(), 1);
    const QJsonObject missing = runs()[0].toObject();
    EXPECT_EQ(missing.value(text("file")).toString(), text("missing.enex"));
    EXPECT_EQ(missing.value(text("outcome")).toString(), text("failed"));
    EXPECT_EQ(missing.value(text("error")).toObject().value(text("code")).toInt(), 260);
    EXPECT_FALSE(exists("lib"));
}

TEST_F(ImportCommandTest, AFailedFileDoesNotKeepTheOthersFromBeingImported)
{
    m_folder.write(text("broken.enex"), "<en-export><note>");
    const QString good = file("A.enex", note("One"));
    const CommandResult result = runIntoOut(
        {text("missing.enex"), text("broken.enex"), good, text("--report"), text("report.json")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(entities(path("out"), "Item").size(), 1);
    QStringList files;
    for (const QJsonValue& entry : runs())
        files += QFileInfo(entry.toObject().value(text("file")).toString()).fileName();
    EXPECT_EQ(files, (QStringList{text("missing.enex"), text("broken.enex"), text("A.enex")}));
}

TEST_F(ImportCommandTest, AFileWithoutPermissionFailsAndSaysSo)
{
    const QString path = file("A.enex", note("One"));
    ASSERT_TRUE(QFile::setPermissions(path, {}));
    constexpr auto everyone
        = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), everyone));
    constexpr uid_t nobody = 65534;
    const CommandResult result = run({text("--files-folder"), text("out"), path}, [] {
        // The superuser may read everything.
        if (geteuid() == 0 && setuid(nobody) != 0)
            _exit(99);
    });
    if (result.status == -1 || result.status == 99)
        GTEST_SKIP() << "the program cannot be run as somebody else here";
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("Permission denied"))) << qPrintable(result.errors);
    EXPECT_FALSE(exists("out"));
}

TEST_F(ImportCommandTest, WrongUsageSaysWhatIsWrong)
{
    const QString path = file("A.enex", note("One"));
    const QList<QPair<QStringList, const char*>> cases{
        {{}, "No file to import."},
        {{text("--no-such-option"), path}, "no-such-option"},
        {{text("--set"), text("novalue"), path}, "KEY=VALUE"},
        {{text("--set"), text("=x"), path}, "KEY=VALUE"},
        {{text("--files-folder"), text("a"), text("--library"), text("b"), path}, "exclude"},
        {{text("--files-folder"), text(""), path}, "needs a path"},
        {{path, text("--report")}, "report"}};
    for (const auto& [arguments, message] : cases) {
        const CommandResult result = run(arguments);
        EXPECT_EQ(result.status, 2) << message;
        EXPECT_TRUE(result.errors.contains(text(message))) << qPrintable(result.errors);
        EXPECT_TRUE(result.errors.contains(text("--help")));
    }
}

TEST_F(ImportCommandTest, HelpAndVersionSucceed)
{
    EXPECT_EQ(run({text("--help")}).status, 0);
    EXPECT_TRUE(run({text("--help")}).output.contains(text("--files-folder")));
    EXPECT_EQ(run({text("--version")}).output, text("vupuge-import 3.5.3\n"));
}

TEST_F(ImportCommandTest, SettingsHoldForTheRunOnly)
{
    const QString path = file("A.enex", note("One"));
    ASSERT_EQ(runIntoOut({text("--set"), text("ExportDebug=YES"), path}).status, 0);
    EXPECT_TRUE(m_folder.read(text("out/Evernote Export.log")).contains("parser:didStartElement: note"));
    ASSERT_EQ(runIntoOut({text("--set"), text("ExportDebug=NO"), path}).status, 0);
    EXPECT_FALSE(m_folder.read(text("out/Evernote Export.log")).contains("parser:"));
}

} // namespace
