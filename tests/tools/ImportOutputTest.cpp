// SPDX-License-Identifier: MIT
//
// What the program says: lines, the last line, progress, the report.
#include "tools/CommandFixture.h"

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace {

using test::CommandResult;
using test::text;

class ImportOutputTest : public test::CommandTest {};

TEST_F(ImportOutputTest, ASkippedNoteIsToldWithItsReasonAndReported)
{
    const CommandResult result
        = runIntoOut({text("--report"), text("report.json"), file("A.enex", note("Good") + note("Bad", ""))});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.contains(text("Skipped \"Bad\": "))) << qPrintable(result.output);
    EXPECT_EQ(result.lastLine(), text("2 notes: 1 became an item, 1 was skipped."));
    const QJsonObject json = report();
    EXPECT_EQ(json.value(text("notes")).toInt(), 2);
    EXPECT_EQ(json.value(text("items")).toInt(), 1);
    EXPECT_TRUE(json.value(text("seconds")).isDouble());
    EXPECT_TRUE(json.value(text("warnings")).isArray());
    EXPECT_FALSE(json.contains(text("earlier")));
    const QJsonArray skipped = json.value(text("skipped")).toArray();
    ASSERT_EQ(skipped.size(), 1);
    EXPECT_EQ(skipped[0].toObject().value(text("title")).toString(), text("Bad"));
    EXPECT_EQ(skipped[0].toObject().value(text("domain")).toString(), text("NSXMLParserErrorDomain"));
    EXPECT_TRUE(skipped[0].toObject().value(text("code")).isDouble());
    EXPECT_FALSE(skipped[0].toObject().value(text("text")).toString().isEmpty());
}

TEST_F(ImportOutputTest, TheLastLineCountsInGoodEnglish)
{
    EXPECT_EQ(runIntoOut({file("A.enex", note("One"))}).lastLine(),
              text("1 note: 1 became an item, none were skipped."));
    EXPECT_EQ(runIntoOut({file("B.enex", note("One", "") + note("Two", ""))}).lastLine(),
              text("2 notes: 0 became items, 2 were skipped."));
}

TEST_F(ImportOutputTest, WarningsAreToldAndReported)
{
    const QByteArray body = "<en-note>text<en-media type=\"image/png\" hash=\"00\"/></en-note>";
    const CommandResult result
        = runIntoOut({text("--report"), text("report.json"), file("A.enex", note("N", body))});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.output.contains(text("Note \"N\": ")));
    EXPECT_EQ(report().value(text("warnings")).toArray().size(), 1);
}

TEST_F(ImportOutputTest, NothingInATitleReachesTheTerminalButText)
{
    // An escape of eight bits, a bell, a mark that turns the writing round, a line separator; an emoji of two
    // that a joiner binds together.
    const QByteArray title = "a\xC2\x9B" "31mb\xE2\x80\xAE" "c\xE2\x80\xA8" "d\xF0\x9D\x85\xB3"
                             "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x94\xAC";
    const CommandResult result = runIntoOut({file("A.enex", note(title, ""))});
    EXPECT_TRUE(result.output.contains(
        text("Skipped \"a\uFFFD31mb\uFFFDc\uFFFDd\uFFFD\U0001F469\u200D\U0001F52C\": ")))
        << qPrintable(result.output);
}

TEST_F(ImportOutputTest, NothingInAFileNameReachesTheTerminalButText)
{
    const CommandResult result
        = runIntoOut({file(text("A\x1b[31m\n.enex"), note("One")), text("gone\x1b[2J.enex")});
    EXPECT_EQ(result.status, 1);
    EXPECT_FALSE(result.output.contains(u'\x1b'));
    EXPECT_FALSE(result.errors.contains(u'\x1b'));
    EXPECT_TRUE(result.output.contains(text("A\uFFFD[31m\uFFFD.enex: 1 note\n")))
        << qPrintable(result.output);
    EXPECT_TRUE(result.errors.contains(text("gone\uFFFD[2J.enex: ")));
    EXPECT_FALSE(run({text("--no\x1bsuch")}).errors.contains(u'\x1b'));
}

TEST_F(ImportOutputTest, WithoutATerminalProgressIsPlainLines)
{
    const CommandResult result = runIntoOut({file("A.enex", note("One").repeated(20))});
    EXPECT_TRUE(result.output.contains(text("Importing ")));
    EXPECT_TRUE(result.output.contains(text("10 of 20 notes")));
    EXPECT_FALSE(result.output.contains(u'\r'));
}

TEST_F(ImportOutputTest, OnATerminalProgressIsABarThatFills)
{
    int terminal = -1;
    int slave = -1;
    ASSERT_EQ(openpty(&terminal, &slave, nullptr, nullptr, nullptr), 0);
    QProcess process;
    process.setChildProcessModifier([slave] { dup2(slave, STDOUT_FILENO); });
    start(process, {text("--files-folder"), text("out"), file("A.enex", note("One").repeated(20))});
    close(slave);
    // The terminal is gone, with an error, when its last user is.
    QByteArray shown;
    char bytes[4096];
    for (ssize_t count = 0; (count = read(terminal, bytes, sizeof bytes)) > 0;)
        shown.append(bytes, count);
    close(terminal);
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0);
    const QByteArray empty = "\r  [" + QByteArray(40, ' ') + "]   0 %  0 of 20";
    const QByteArray full = "\r  [" + QByteArray(40, '#') + "] 100 %  20 of 20\r\n";
    EXPECT_TRUE(shown.contains(empty)) << shown.constData();
    EXPECT_TRUE(shown.contains(full)) << shown.constData();
    EXPECT_FALSE(shown.contains("10 of 20 notes"));
}

TEST_F(ImportOutputTest, AReportThatCannotBeWrittenIsAFailure)
{
    const CommandResult result
        = runIntoOut({text("--report"), text("/nowhere/at/all.json"), file("A.enex", note("One"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains(text("/nowhere/at/all.json")));
}

} // namespace
