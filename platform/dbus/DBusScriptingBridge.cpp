// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusScriptingBridge.h"

#include "platform/dbus/DBusEvernoteApplication.h"
#include "platform/dbus/DBusQuilleryApplication.h"
#include "platform/scripting/QuilleryIdentifiers.h"

namespace platform {

DBusScriptingBridge::DBusScriptingBridge(std::shared_ptr<BusConnection> bus,
                                         const CallLimits& limits)
    : m_bus(std::move(bus))
    , m_limits(limits)
{
}

bool DBusScriptingBridge::isRunning(const QString& bundleIdentifier)
{
    return m_bus->isConnected() && bool(m_bus->owner(bundleIdentifier));
}

bool DBusScriptingBridge::isInstalled(const QString& bundleIdentifier)
{
    return isRunning(bundleIdentifier) ||
           (m_bus->isConnected() && m_bus->isActivatable(bundleIdentifier));
}

std::shared_ptr<QuilleryApplication>
DBusScriptingBridge::makeQuillery(const QString& bundleIdentifier)
{
    auto application = std::make_shared<DBusQuilleryApplication>(m_bus, bundleIdentifier, m_limits);
    const std::lock_guard lock(m_mutex);
    m_lastQuillery = application;
    return application;
}

std::shared_ptr<QuilleryApplication>
DBusScriptingBridge::runningQuillery(const QString& bundleIdentifier)
{
    return isRunning(bundleIdentifier) ? makeQuillery(bundleIdentifier) : nullptr;
}

std::shared_ptr<QuilleryApplication>
DBusScriptingBridge::installedQuillery(const QString& bundleIdentifier)
{
    return isInstalled(bundleIdentifier) ? makeQuillery(bundleIdentifier) : nullptr;
}

bool DBusScriptingBridge::hasQuillery()
{
    return isInstalled(quillery::identifier) || isInstalled(quillery::storeIdentifier);
}

std::shared_ptr<DBusQuilleryApplication> DBusScriptingBridge::lastQuillery() const
{
    const std::lock_guard lock(m_mutex);
    return m_lastQuillery;
}

std::shared_ptr<EvernoteApplication> DBusScriptingBridge::installedEvernote()
{
    return isInstalled(evernoteBundleIdentifier)
               ? std::make_shared<DBusEvernoteApplication>(m_bus, m_limits)
               : nullptr;
}

} // namespace platform
