// SPDX-License-Identifier: MIT
#include "foundation/OperationQueueQLExtensions.h"

void addOperationAndWaitUntilFinished(platform::OperationQueue& queue,
                                      const std::shared_ptr<platform::Operation>& operation)
{
    queue.addOperation(operation);
    operation->waitUntilFinished();
}

void addOperationWithBlockAndWaitUntilFinished(platform::OperationQueue& queue, std::function<void()> block)
{
    addOperationAndWaitUntilFinished(queue, std::make_shared<platform::BlockOperation>(std::move(block)));
}
