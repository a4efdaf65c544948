// SPDX-License-Identifier: MIT
#pragma once

#include "platform/operations/Operation.h"

#include <memory>
#include <mutex>
#include <vector>

namespace platform {

// Operations that are cancelled together though no queue runs them. It may be used from any thread.
class OperationGroup {
public:
    OperationGroup() = default;
    OperationGroup(const OperationGroup&) = delete;
    OperationGroup& operator=(const OperationGroup&) = delete;

    // The operation is not owned, and forgotten once it has finished. Where the group was cancelled
    // before, the operation is cancelled at once.
    void addOperation(const std::shared_ptr<Operation>& operation);

    // Cancels what there is and whatever is added later.
    void cancelAllOperations();

    [[nodiscard]] bool isCancelled() const;

private:
    mutable std::mutex m_mutex;
    bool m_cancelled = false;
    std::vector<std::weak_ptr<Operation>> m_operations;
};

} // namespace platform
