// SPDX-License-Identifier: MIT
#include "platform/operations/OperationGroup.h"

#include <functional>
#include <thread>

namespace {

using platform::Operation;
using platform::OperationGroup;

// Goes on after its start until somebody cancels it.
class WaitingOperation : public Operation {
public:
    explicit WaitingOperation(std::function<void()> whenCancelled = {})
        : m_whenCancelled(std::move(whenCancelled))
    {
    }

    void start() override { beginExecuting(); }
    void cancel() override
    {
        Operation::cancel();
        if (m_whenCancelled)
            m_whenCancelled();
        finish();
    }

private:
    std::function<void()> m_whenCancelled;
};

TEST(OperationGroupTest, CancelsWhatWasAdded)
{
    OperationGroup group;
    const auto first = std::make_shared<WaitingOperation>();
    const auto second = std::make_shared<WaitingOperation>();
    group.addOperation(first);
    group.addOperation(second);
    EXPECT_FALSE(group.isCancelled());
    EXPECT_FALSE(first->isCancelled());
    group.cancelAllOperations();
    EXPECT_TRUE(group.isCancelled());
    EXPECT_TRUE(first->isCancelled());
    EXPECT_TRUE(second->isCancelled());
}

TEST(OperationGroupTest, CancelsAtOnceWhatIsAddedLater)
{
    OperationGroup group;
    group.cancelAllOperations();
    const auto operation = std::make_shared<WaitingOperation>();
    group.addOperation(operation);
    EXPECT_TRUE(operation->isCancelled());
}

TEST(OperationGroupTest, KeepsNoOperationAndLeavesAFinishedOneAlone)
{
    OperationGroup group;
    auto gone = std::make_shared<WaitingOperation>();
    const std::weak_ptr<WaitingOperation> watched = gone;
    group.addOperation(gone);
    gone.reset();
    EXPECT_TRUE(watched.expired());
    const auto done = std::make_shared<WaitingOperation>();
    group.addOperation(done);
    done->Operation::start();
    group.addOperation(std::make_shared<WaitingOperation>());
    group.cancelAllOperations();
    EXPECT_TRUE(done->isFinished());
    EXPECT_FALSE(done->isCancelled());
}

TEST(OperationGroupTest, AnOperationMayAskTheGroupWhileItIsCancelled)
{
    OperationGroup group;
    bool seen = false;
    const auto operation = std::make_shared<WaitingOperation>([&] { seen = group.isCancelled(); });
    group.addOperation(operation);
    group.cancelAllOperations();
    EXPECT_TRUE(seen);
}

TEST(OperationGroupTest, AWaiterIsFreedWhicheverComesFirst)
{
    for (int round = 0; round < 200; ++round) {
        OperationGroup group;
        std::thread waiter([&] {
            const auto operation = std::make_shared<WaitingOperation>();
            operation->start();
            group.addOperation(operation);
            operation->waitUntilFinished();
        });
        group.cancelAllOperations();
        waiter.join();
    }
    SUCCEED();
}

} // namespace
