// SPDX-License-Identifier: MIT
#include "foundation/BMXLogManager.h"
#include "foundation/OperationQueueQLExtensions.h"
#include "foundation/OutputStreamBMExtensions.h"

#include "support/ScratchFolder.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <thread>

namespace {

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

class WriteLogLineTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_stream.open()); }

    test::ScratchFolder m_folder;
    platform::OutputStream m_stream{m_folder.filePath("log"), platform::OutputStream::Mode::Append};
};

TEST_F(WriteLogLineTest, WritesDateBlankTextLineFeed)
{
    const qint64 written = writeLogLine(&m_stream, text("Exporting notes"));
    const QByteArray log = m_folder.read(text("log"));
    EXPECT_EQ(written, log.size());
    const QRegularExpression form(text("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\+0000 Exporting notes\n$"));
    EXPECT_TRUE(form.match(QString::fromUtf8(log)).hasMatch()) << log.constData();
}

TEST_F(WriteLogLineTest, ALineThatIsNotAsciiLosesAsManyBytesAsItHasExtra)
{
    const QString line = text("Caf\u00e9 ok");
    writeLogLine(&m_stream, line);
    // The date takes 25 characters and a blank follows; the letter has one extra byte, so the line feed goes.
    EXPECT_TRUE(m_folder.read(text("log")).endsWith("Caf\xC3\xA9 ok"));
    writeLogLine(&m_stream, text("\u65e5\u65e5 abcdef"));
    // Two letters of three bytes each: four bytes are lost, the line feed and three more.
    EXPECT_TRUE(m_folder.read(text("log")).endsWith("\xE6\x97\xA5\xE6\x97\xA5 abc"));
}

TEST_F(WriteLogLineTest, ReturnsTheStreamsResult)
{
    m_stream.close();
    EXPECT_EQ(writeLogLine(&m_stream, text("late")), -1);
    EXPECT_EQ(writeLogLine(nullptr, text("nowhere")), 0);
}

TEST(OperationQueueQLExtensionsTest, TheCallerWaitsUntilTheBlockHasRun)
{
    platform::OperationQueue queue;
    std::atomic<bool> ran = false;
    addOperationWithBlockAndWaitUntilFinished(queue, [&] {
        std::this_thread::yield();
        ran = true;
    });
    EXPECT_TRUE(ran);
}

TEST(OperationQueueQLExtensionsTest, TheCallerWaitsForAnOperation)
{
    platform::OperationQueue queue;
    int runs = 0;
    const auto operation = std::make_shared<platform::BlockOperation>([&] { ++runs; });
    addOperationAndWaitUntilFinished(queue, operation);
    EXPECT_TRUE(operation->isFinished());
    EXPECT_EQ(runs, 1);
}

TEST(OperationQueueQLExtensionsTest, AWorkerWaitsForTheMainThread)
{
    std::atomic<bool> done = false;
    QThread* runner = nullptr;
    std::thread worker([&] {
        addOperationWithBlockAndWaitUntilFinished(platform::OperationQueue::mainQueue(),
                                                  [&] { runner = QThread::currentThread(); });
        EXPECT_NE(runner, nullptr);
        done = true;
        QMetaObject::invokeMethod(QCoreApplication::instance(), [] {}, Qt::QueuedConnection);
    });
    while (!done)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    worker.join();
    EXPECT_EQ(runner, QCoreApplication::instance()->thread());
}

TEST(BMXLogManagerTest, AppendsStandardErrorToTheFileAndGivesItBack)
{
    const test::ScratchFolder folder;
    const QString path = folder.write(text("log"), "first\n");
    BMXLogManager& manager = BMXLogManager::sharedManager();
    ASSERT_TRUE(manager.redirectStandardErrorToFileAtPath(path));
    std::fputs("second\n", stderr);
    const test::ScratchFolder other;
    ASSERT_TRUE(manager.redirectStandardErrorToFileAtPath(other.filePath("log")));
    std::fputs("third\n", stderr);
    manager.restoreStandardError();
    EXPECT_FALSE(manager.isRedirected());
    std::fputs("", stderr);
    EXPECT_EQ(folder.read(text("log")), "first\nsecond\n");
    EXPECT_EQ(other.read(text("log")), "third\n");
}

TEST(BMXLogManagerTest, TheEndOfARedirectionThatWasReplacedChangesNothing)
{
    const test::ScratchFolder folder;
    BMXLogManager& manager = BMXLogManager::sharedManager();
    const quint64 first = manager.redirectStandardErrorToFileAtPath(folder.filePath("first"));
    const quint64 second = manager.redirectStandardErrorToFileAtPath(folder.filePath("second"));
    ASSERT_TRUE(first && second);
    manager.endRedirection(first);
    std::fputs("still\n", stderr);
    manager.endRedirection(second);
    EXPECT_FALSE(manager.isRedirected());
    EXPECT_EQ(folder.read(text("second")), "still\n");
    // An end that comes twice, or of a redirection that there never was, is nobody's.
    const quint64 third = manager.redirectStandardErrorToFileAtPath(folder.filePath("third"));
    manager.endRedirection(second);
    manager.endRedirection(0);
    EXPECT_TRUE(manager.isRedirected());
    manager.endRedirection(third);
    EXPECT_FALSE(manager.isRedirected());
}

TEST(BMXLogManagerTest, AFileThatCannotBeOpenedChangesNothing)
{
    EXPECT_FALSE(BMXLogManager::sharedManager().redirectStandardErrorToFileAtPath(text("/nowhere/at/all/log")));
    EXPECT_FALSE(BMXLogManager::sharedManager().isRedirected());
}

} // namespace
