// SPDX-License-Identifier: MIT
#include "platform/operations/OperationQueue.h"

#include <QCoreApplication>
#include <QMetaObject>

#include <algorithm>
#include <deque>
#include <thread>

namespace platform {

// What the queue and its threads share; the last of them to go away takes it along.
class OperationQueue::State : public std::enable_shared_from_this<State> {
public:
    explicit State(Kind kind)
        : m_kind(kind)
    {
    }

    void add(const std::shared_ptr<Operation>& operation)
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(operation);
        if (m_kind == Kind::MainThread) {
            if (m_hasApplication)
                postNext();
            return;
        }
        if (m_threads < m_limit) {
            ++m_threads;
            // A thread lives while there is work, so none is left to be joined when the queue goes
            // away.
            std::thread([self = shared_from_this()] { self->runUntilEmpty(); }).detach();
        }
    }

    // Of the main queue, on the main thread: what was added meanwhile has waited.
    void applicationBegins()
    {
        const std::lock_guard lock(m_mutex);
        m_hasApplication = true;
        for (std::size_t count = 0; count < m_waiting.size(); ++count)
            postNext();
    }

    // Of the main queue, on the main thread, while the application is still there to be posted to.
    void applicationEnds()
    {
        const std::lock_guard lock(m_mutex);
        m_hasApplication = false;
    }

    void setLimit(int limit)
    {
        const std::lock_guard lock(m_mutex);
        m_limit = std::max(1, limit);
    }

    std::vector<std::shared_ptr<Operation>> operations() const
    {
        const std::lock_guard lock(m_mutex);
        std::vector<std::shared_ptr<Operation>> all(m_running.begin(), m_running.end());
        all.insert(all.end(), m_waiting.begin(), m_waiting.end());
        return all;
    }

    void waitUntilEmpty()
    {
        std::unique_lock lock(m_mutex);
        m_emptied.wait(lock, [this] { return isEmpty(); });
    }

private:
    [[nodiscard]] bool isEmpty() const
    {
        return m_waiting.empty() && m_running.empty() && m_releasing == 0;
    }

    void postNext()
    {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [self = shared_from_this()] { self->runNext(); },
            Qt::QueuedConnection);
    }

    void runUntilEmpty()
    {
        while (std::shared_ptr<Operation> operation = takeNext(WhenEmpty::EndThread))
            run(std::move(operation));
    }

    void runNext()
    {
        if (std::shared_ptr<Operation> operation = takeNext(WhenEmpty::Return))
            run(std::move(operation));
    }

    enum class WhenEmpty { EndThread, Return };
    std::shared_ptr<Operation> takeNext(WhenEmpty whenEmpty)
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty()) {
            if (whenEmpty == WhenEmpty::EndThread)
                --m_threads;
            return nullptr;
        }
        std::shared_ptr<Operation> operation = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_running.push_back(operation);
        return operation;
    }

    void run(std::shared_ptr<Operation> operation)
    {
        operation->start();
        operation->waitUntilFinished();
        {
            const std::lock_guard lock(m_mutex);
            std::erase(m_running, operation);
            ++m_releasing;
        }
        // Outside the lock, because what an operation holds may reach back to this queue when it is
        // released; and before anybody hears that the queue is empty.
        operation.reset();
        const std::lock_guard lock(m_mutex);
        --m_releasing;
        if (isEmpty())
            m_emptied.notify_all();
    }

    const Kind m_kind;
    mutable std::mutex m_mutex;
    // Held true for as long as it may be posted to, which is shorter than it exists.
    bool m_hasApplication = false;
    std::condition_variable m_emptied;
    std::deque<std::shared_ptr<Operation>> m_waiting;
    std::vector<std::shared_ptr<Operation>> m_running;
    // Operations that have finished but are still held.
    int m_releasing = 0;
    int m_threads = 0;
    int m_limit = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
};

OperationQueue::OperationQueue()
    : OperationQueue(Kind::Threads)
{
}

OperationQueue::OperationQueue(Kind kind)
    : m_state(std::make_shared<State>(kind))
{
}

OperationQueue::~OperationQueue() = default;

OperationQueue& OperationQueue::mainQueue()
{
    // Never destroyed: a thread that still works while the program ends may have something to hand
    // over.
    static OperationQueue& queue = *new OperationQueue(Kind::MainThread);
    return queue;
}

// Follows the applications that there are one after another; usually there is one.
struct OperationQueue::MainQueueLife {
    static void begin()
    {
        mainQueue().m_state->applicationBegins();
        qAddPostRoutine(&MainQueueLife::end);
    }
    static void end() { mainQueue().m_state->applicationEnds(); }
    static const bool isFollowing;
};

const bool OperationQueue::MainQueueLife::isFollowing =
    (qAddPreRoutine(&MainQueueLife::begin), true);

void OperationQueue::addOperation(const std::shared_ptr<Operation>& operation)
{
    m_state->add(operation);
}

void OperationQueue::addOperationWithBlock(std::function<void()> block)
{
    addOperation(std::make_shared<BlockOperation>(std::move(block)));
}

void OperationQueue::setMaxConcurrentOperationCount(int count)
{
    m_state->setLimit(count);
}

std::vector<std::shared_ptr<Operation>> OperationQueue::operations() const
{
    return m_state->operations();
}

void OperationQueue::cancelAllOperations()
{
    for (const auto& operation : m_state->operations())
        operation->cancel();
}

void OperationQueue::waitUntilAllOperationsAreFinished()
{
    m_state->waitUntilEmpty();
}

} // namespace platform
