// SPDX-License-Identifier: MIT
#include "platform/operations/OperationQueue.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

using platform::Operation;
using platform::OperationQueue;

class RecordingOperation : public Operation {
public:
    explicit RecordingOperation(std::function<void(RecordingOperation&)> work = {})
        : m_work(std::move(work))
    {
    }

    std::atomic<int> runs = 0;

protected:
    void main() override
    {
        ++runs;
        if (m_work)
            m_work(*this);
    }

private:
    std::function<void(RecordingOperation&)> m_work;
};

TEST(OperationTest, RunsOnceAndFinishes)
{
    RecordingOperation operation([](RecordingOperation& self) {
        EXPECT_TRUE(self.isExecuting());
        EXPECT_FALSE(self.isFinished());
    });
    operation.start();
    EXPECT_EQ(operation.runs, 1);
    EXPECT_TRUE(operation.isFinished());
    EXPECT_FALSE(operation.isExecuting());
    operation.waitUntilFinished();
}

TEST(OperationTest, CancelledBeforeItsStartItFinishesWithoutRunning)
{
    RecordingOperation operation;
    operation.cancel();
    operation.start();
    EXPECT_EQ(operation.runs, 0);
    EXPECT_TRUE(operation.isCancelled());
    EXPECT_TRUE(operation.isFinished());
}

TEST(OperationTest, CancellingWhileItRunsIsOnlyAFlag)
{
    RecordingOperation operation([](RecordingOperation& self) {
        self.cancel();
        EXPECT_TRUE(self.isExecuting());
    });
    operation.start();
    EXPECT_EQ(operation.runs, 1);
    EXPECT_TRUE(operation.isCancelled());
}

TEST(OperationQueueTest, RunsOperationsOnThreadsOfItsOwn)
{
    OperationQueue queue;
    const std::thread::id mine = std::this_thread::get_id();
    std::thread::id theirs = mine;
    queue.addOperationWithBlock([&] { theirs = std::this_thread::get_id(); });
    queue.waitUntilAllOperationsAreFinished();
    EXPECT_NE(theirs, mine);
}

TEST(OperationQueueTest, OneAtATimeKeepsTheOrder)
{
    OperationQueue queue;
    queue.setMaxConcurrentOperationCount(1);
    std::vector<int> order;
    for (int number = 0; number < 200; ++number)
        queue.addOperationWithBlock([&order, number] { order.push_back(number); });
    queue.waitUntilAllOperationsAreFinished();
    ASSERT_EQ(order.size(), 200u);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST(OperationQueueTest, HoldsAnOperationUntilItHasFinished)
{
    OperationQueue queue;
    std::atomic<bool> release = false;
    auto operation = std::make_shared<RecordingOperation>([&](RecordingOperation&) {
        while (!release)
            std::this_thread::yield();
    });
    queue.addOperation(operation);
    ASSERT_EQ(queue.operations().size(), 1u);
    EXPECT_EQ(queue.operations().front(), operation);
    release = true;
    queue.waitUntilAllOperationsAreFinished();
    EXPECT_TRUE(queue.operations().empty());
}

TEST(OperationQueueTest, CancelAllReachesWhatRunsAndWhatWaits)
{
    OperationQueue queue;
    queue.setMaxConcurrentOperationCount(1);
    auto running = std::make_shared<RecordingOperation>([](RecordingOperation& self) {
        while (!self.isCancelled())
            std::this_thread::yield();
    });
    auto waiting = std::make_shared<RecordingOperation>();
    queue.addOperation(running);
    queue.addOperation(waiting);
    queue.cancelAllOperations();
    queue.waitUntilAllOperationsAreFinished();
    EXPECT_TRUE(waiting->isCancelled());
    EXPECT_EQ(waiting->runs, 0);
}

TEST(OperationQueueTest, MayBeDestroyedOnItsOwnThread)
{
    std::atomic<bool> done = false;
    {
        auto queue = std::make_shared<OperationQueue>();
        std::atomic<bool> mayGo = false;
        queue->addOperationWithBlock([&mayGo, &done, held = queue]() mutable {
            while (!mayGo)
                std::this_thread::yield();
            held.reset();
            done = true;
        });
        queue.reset();
        mayGo = true;
        while (!done)
            std::this_thread::yield();
    }
    EXPECT_TRUE(done);
}

TEST(OperationQueueTest, TheMainQueueRunsInTheEventLoopOfTheMainThread)
{
    std::atomic<bool> ran = false;
    QThread* runner = nullptr;
    std::thread worker([&] {
        auto operation = std::make_shared<platform::BlockOperation>([&] {
            runner = QThread::currentThread();
            ran = true;
        });
        OperationQueue::mainQueue().addOperation(operation);
        operation->waitUntilFinished();
    });
    while (!ran)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    worker.join();
    EXPECT_EQ(runner, QCoreApplication::instance()->thread());
}

TEST(OperationQueueTest, TheMainQueueKeepsTheOrder)
{
    std::vector<int> order;
    for (int number = 0; number < 50; ++number)
        OperationQueue::mainQueue().addOperationWithBlock(
            [&order, number] { order.push_back(number); });
    while (order.size() < 50)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

// What a program does that quits in the middle of its work. Returns what is wrong.
const char* quitAndBeginAgain()
{
    std::atomic<int> runs = 0;
    const auto add = [&runs] {
        // On another thread, as runs do.
        std::thread([&runs] {
            OperationQueue::mainQueue().addOperationWithBlock([&runs] { ++runs; });
        }).join();
    };
    add();
    QCoreApplication::instance()->~QCoreApplication();
    add();
    add();
    if (runs != 0 || OperationQueue::mainQueue().operations().size() != 3)
        return "what has no application to run in does not wait";
    int count = 1;
    char name[] = "again";
    char* arguments[] = {name, nullptr};
    QCoreApplication application(count, arguments);
    add();
    QCoreApplication::processEvents();
    return runs == 4 ? nullptr : "what waited did not run in the next application";
}

TEST(OperationQueueDeathTest, WithoutAnApplicationTheMainQueueWaitsForTheNextOne)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            const char* const fault = quitAndBeginAgain();
            std::fprintf(stderr, "%s\n", fault ? fault : "good");
            std::_Exit(fault ? 1 : 0);
        },
        ::testing::ExitedWithCode(0), "good");
}

} // namespace
