// SPDX-License-Identifier: MIT
#include "platform/operations/OperationGroup.h"

namespace platform {

void OperationGroup::addOperation(const std::shared_ptr<Operation>& operation)
{
    {
        const std::lock_guard lock(m_mutex);
        if (!m_cancelled) {
            std::erase_if(m_operations, [](const std::weak_ptr<Operation>& known) {
                const std::shared_ptr<Operation> alive = known.lock();
                return !alive || alive->isFinished();
            });
            m_operations.push_back(operation);
            return;
        }
    }
    operation->cancel();
}

void OperationGroup::cancelAllOperations()
{
    std::vector<std::weak_ptr<Operation>> operations;
    {
        const std::lock_guard lock(m_mutex);
        m_cancelled = true;
        operations.swap(m_operations);
    }
    // Outside the lock: what an operation does when it is cancelled is its own affair.
    for (const std::weak_ptr<Operation>& known : operations) {
        if (const std::shared_ptr<Operation> operation = known.lock())
            operation->cancel();
    }
}

bool OperationGroup::isCancelled() const
{
    const std::lock_guard lock(m_mutex);
    return m_cancelled;
}

} // namespace platform
