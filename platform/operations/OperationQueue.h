// SPDX-License-Identifier: MIT
#pragma once

#include "platform/operations/Operation.h"

#include <functional>
#include <memory>
#include <vector>

namespace platform {

// Runs operations in the order in which they were added, several at a time on threads of its own.
// The main queue runs them one after another in the event loop of the main thread.
//
// A queue holds an operation until it has finished. A queue that goes away lets what was added run
// to its end; it may be destroyed on one of its own threads.
class OperationQueue {
public:
    OperationQueue();
    ~OperationQueue();
    OperationQueue(const OperationQueue&) = delete;
    OperationQueue& operator=(const OperationQueue&) = delete;

    // The queue of the thread that runs the application's event loop. Where there is no
    // QCoreApplication, or no longer, what is added waits for the next one, and who waits for it
    // waits on: a thread that is at work when the program ends is held there.
    [[nodiscard]] static OperationQueue& mainQueue();

    void addOperation(const std::shared_ptr<Operation>& operation);
    void addOperationWithBlock(std::function<void()> block);

    // How many operations run at a time; the number of processors unless set.
    void setMaxConcurrentOperationCount(int count);

    // What is waiting or running, in the order added.
    [[nodiscard]] std::vector<std::shared_ptr<Operation>> operations() const;

    // Asks every operation that is waiting or running to cancel.
    void cancelAllOperations();

    void waitUntilAllOperationsAreFinished();

private:
    enum class Kind { Threads, MainThread };
    explicit OperationQueue(Kind kind);

    class State;
    struct MainQueueLife;
    std::shared_ptr<State> m_state;
};

} // namespace platform
