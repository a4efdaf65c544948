// SPDX-License-Identifier: MIT
#pragma once

#include "platform/operations/OperationQueue.h"

#include <functional>
#include <memory>

// Hand work to a queue and block the caller until it has run. Called on a thread of the target queue
// itself the wait never ends: with the main queue, never call them on the main thread.

void addOperationAndWaitUntilFinished(platform::OperationQueue& queue,
                                      const std::shared_ptr<platform::Operation>& operation);

void addOperationWithBlockAndWaitUntilFinished(platform::OperationQueue& queue, std::function<void()> block);
