// SPDX-License-Identifier: MIT
#include "platform/operations/Operation.h"

namespace platform {

Operation::Operation() = default;
Operation::~Operation() = default;

void Operation::start()
{
    if (!isCancelled()) {
        beginExecuting();
        main();
    }
    finish();
}

void Operation::cancel()
{
    const std::lock_guard lock(m_mutex);
    m_cancelled = true;
}

bool Operation::isCancelled() const
{
    const std::lock_guard lock(m_mutex);
    return m_cancelled;
}

bool Operation::isExecuting() const
{
    const std::lock_guard lock(m_mutex);
    return m_executing;
}

bool Operation::isFinished() const
{
    const std::lock_guard lock(m_mutex);
    return m_finished;
}

void Operation::waitUntilFinished() const
{
    std::unique_lock lock(m_mutex);
    m_finishedCondition.wait(lock, [this] { return m_finished; });
}

void Operation::beginExecuting()
{
    const std::lock_guard lock(m_mutex);
    m_executing = true;
}

void Operation::finish()
{
    // Told while the lock is held: a waiter may destroy the operation as soon as it can take the lock.
    const std::lock_guard lock(m_mutex);
    m_executing = false;
    m_finished = true;
    m_finishedCondition.notify_all();
}

BlockOperation::BlockOperation(std::function<void()> block)
    : m_block(std::move(block))
{
}

void BlockOperation::main() { m_block(); }

} // namespace platform
