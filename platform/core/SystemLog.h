// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace platform {

// Writes one message to the system's log (syslog, facility user). Never to standard error, which
// belongs to the run's log while a run is under way.
void systemLog(const QString& message);

// While it lives, receives every message beside the system's log, on the thread that logs.
class SystemLogObserver {
public:
    using Receiver = std::function<void(const QString&)>;

    explicit SystemLogObserver(Receiver receiver);
    ~SystemLogObserver();
    SystemLogObserver(const SystemLogObserver&) = delete;
    SystemLogObserver& operator=(const SystemLogObserver&) = delete;

    void receive(const QString& message) const { m_receiver(message); }

private:
    Receiver m_receiver;
};

} // namespace platform
