// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace platform {

// One piece of work that a queue runs, once. Its flags may be read from any thread.
class Operation {
public:
    Operation();
    virtual ~Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    // Runs main() on the calling thread, unless the operation was cancelled before, and finishes.
    // An operation that goes on after start() returns overrides it and calls finish() at its end.
    virtual void start();

    // Only a flag for the work to look at; what already runs is not interrupted.
    virtual void cancel();

    [[nodiscard]] bool isCancelled() const;
    [[nodiscard]] bool isExecuting() const;
    [[nodiscard]] bool isFinished() const;
    [[nodiscard]] virtual bool isAsynchronous() const { return false; }

    // Blocks the calling thread until the operation has finished.
    void waitUntilFinished() const;

protected:
    virtual void main() {}

    void beginExecuting();
    void finish();

private:
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_finishedCondition;
    bool m_cancelled = false;
    bool m_executing = false;
    bool m_finished = false;
};

// An operation whose work is a function.
class BlockOperation : public Operation {
public:
    explicit BlockOperation(std::function<void()> block);

protected:
    void main() override;

private:
    std::function<void()> m_block;
};

} // namespace platform
