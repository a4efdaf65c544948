// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

// Turns the first interrupt (or request to terminate) into a call in the event loop. A second one ends the
// process as it would without a watcher.
class InterruptWatcher {
public:
    explicit InterruptWatcher(std::function<void()> interrupted);
    ~InterruptWatcher();
    InterruptWatcher(const InterruptWatcher&) = delete;
    InterruptWatcher& operator=(const InterruptWatcher&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
