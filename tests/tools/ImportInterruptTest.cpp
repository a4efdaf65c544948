// SPDX-License-Identifier: MIT
#include "tools/BlockedOutput.h"
#include "tools/CommandFixture.h"

#include <csignal>

namespace {

using test::CommandResult;
using test::text;

class ImportInterruptTest : public test::CommandTest {
protected:
    static void send(const QProcess& process, int signal)
    {
        ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), signal), 0);
    }

    // Sends the signal when the conversion is under way, which the first progress line says.
    CommandResult runAndSend(int signal, const QStringList& arguments) const
    {
        QProcess process;
        start(process, arguments);
        QByteArray output;
        while (!output.contains(" of 1000 notes") && process.waitForReadyRead(60000))
            output += process.readAllStandardOutput();
        send(process, signal);
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(output + process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    [[nodiscard]] QStringList outcomes() const
    {
        QStringList words;
        for (const QJsonValue& entry : runs())
            words += entry.toObject().value(text("outcome")).toString();
        return words;
    }
};

TEST_F(ImportInterruptTest, AnInterruptOrARequestToTerminateCancelsAndImportsNothing)
{
    const QString path = file("A.enex", note("Bad", "") + note("One").repeated(999));
    for (const int signal : {SIGINT, SIGTERM}) {
        const CommandResult result = runAndSend(signal, {text("--files-folder"), text("out"), path});
        EXPECT_EQ(result.status, 1);
        EXPECT_TRUE(result.errors.contains(text("A.enex: cancelled"))) << qPrintable(result.errors);
        EXPECT_FALSE(exists("out/Evernote/Evernote.qllibxml"));
        EXPECT_EQ(result.lastLine(),
                  text("1000 notes: 0 became items, 1 was skipped, 999 were not imported."));
    }
}

TEST_F(ImportInterruptTest, FilesThatWereNotBegunAreCancelledToo)
{
    const QString path = file("A.enex", note("One").repeated(1000));
    const QStringList options{text("--files-folder"), text("out"), text("--report"), text("report.json")};
    const QStringList files{path, file("B.enex", note("Two")), file("C.enex", note("Three"))};
    const CommandResult result = runAndSend(SIGINT, options + files);
    EXPECT_EQ(result.status, 1);
    for (const char* name : {"A.enex: cancelled", "B.enex: cancelled", "C.enex: cancelled"})
        EXPECT_TRUE(result.errors.contains(text(name))) << qPrintable(result.errors);
    EXPECT_EQ(outcomes(), QStringList(3, text("cancelled")));
    EXPECT_FALSE(exists("out/Evernote"));
}

TEST_F(ImportInterruptTest, AnInterruptDuringTheCountingCancelsBeforeAnyNoteIsConverted)
{
    const QString path
        = file("A.enex", note("One", "<en-note>" + QByteArray(500, 'x') + "</en-note>").repeated(200000));
    QProcess process;
    start(process, {text("--files-folder"), text("out"), path});
    // The log is there just before the counting begins.
    ASSERT_TRUE(test::waitUntil([this] { return exists("out/Evernote Export.log"); }));
    send(process, SIGINT);
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("A.enex: cancelled"));
    EXPECT_FALSE(process.readAllStandardOutput().contains(" of 200000 notes"));
    EXPECT_FALSE(exists("out/Evernote/Evernote.qllibxml"));
}

TEST_F(ImportInterruptTest, ASecondInterruptEndsTheProgram)
{
    const QString path = file("A.enex", note("One").repeated(20));
    for (const int second : {SIGINT, SIGTERM}) {
        // Held at its first word, the program can only take note of the first one.
        test::BlockedOutput output(0);
        QProcess process;
        output.attach(process);
        start(process, {text("--files-folder"), text("out"), path});
        ASSERT_TRUE(test::waitUntil([&] { return test::catchesSignal(process, SIGTERM); }));
        send(process, SIGINT);
        ASSERT_TRUE(test::waitUntil([&] { return !test::catchesSignal(process, SIGTERM); }));
        ASSERT_EQ(process.state(), QProcess::Running);
        send(process, second);
        ASSERT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    }
}

TEST_F(ImportInterruptTest, AnInterruptWhenAllIsImportedDoesNotMakeItAFailure)
{
    const QStringList arguments{text("--files-folder"), text("out"), file("A.enex", note("One"))};
    const CommandResult plain = run(arguments);
    ASSERT_EQ(plain.status, 0);
    // Room for everything but the last line.
    const QByteArray before = plain.output.toUtf8().chopped(plain.lastLine().size() + 1);
    test::BlockedOutput output(static_cast<int>(before.size()));
    QProcess process;
    output.attach(process);
    start(process, arguments);
    ASSERT_TRUE(test::waitUntil([&] { return output.bytesWritten() == before.size(); }));
    send(process, SIGINT);
    ASSERT_TRUE(test::waitUntil([&] { return !test::catchesSignal(process, SIGINT); }));
    EXPECT_EQ(output.readAll(), plain.output.toUtf8());
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

} // namespace
