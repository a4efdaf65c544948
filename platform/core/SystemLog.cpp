// SPDX-License-Identifier: MIT
#include "platform/core/SystemLog.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include <syslog.h>

namespace platform {

namespace {

std::mutex& observersMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::vector<const SystemLogObserver*>& observers()
{
    // Never destroyed: a thread that still works while the program ends may have something to say.
    static auto& list = *new std::vector<const SystemLogObserver*>;
    return list;
}

} // namespace

void systemLog(const QString& message)
{
    syslog(LOG_USER | LOG_NOTICE, "%s", message.toUtf8().constData());
    const std::lock_guard lock(observersMutex());
    for (const SystemLogObserver* observer : observers())
        observer->receive(message);
}

SystemLogObserver::SystemLogObserver(Receiver receiver)
    : m_receiver(std::move(receiver))
{
    const std::lock_guard lock(observersMutex());
    observers().push_back(this);
}

SystemLogObserver::~SystemLogObserver()
{
    const std::lock_guard lock(observersMutex());
    std::erase(observers(), this);
}

} // namespace platform
