// SPDX-License-Identifier: MIT
#include "platform/dbus/BusFirstScriptingBridge.h"

namespace platform {

BusFirstScriptingBridge::BusFirstScriptingBridge(std::shared_ptr<DBusScriptingBridge> bus,
                                                 std::shared_ptr<ScriptingBridge> embedded)
    : m_bus(std::move(bus))
    , m_embedded(std::move(embedded))
{
}

ScriptingBridge& BusFirstScriptingBridge::chosen()
{
    std::call_once(m_isChosen, [this] {
        m_chosen = m_embedded.get();
        if (m_bus->hasQuillery())
            m_chosen = m_bus.get();
    });
    return *m_chosen;
}

bool BusFirstScriptingBridge::isRunning(const QString& bundleIdentifier)
{
    return chosen().isRunning(bundleIdentifier);
}

std::shared_ptr<QuilleryApplication>
BusFirstScriptingBridge::runningQuillery(const QString& bundleIdentifier)
{
    return chosen().runningQuillery(bundleIdentifier);
}

std::shared_ptr<QuilleryApplication>
BusFirstScriptingBridge::installedQuillery(const QString& bundleIdentifier)
{
    return chosen().installedQuillery(bundleIdentifier);
}

std::shared_ptr<DBusQuilleryApplication> BusFirstScriptingBridge::lastQuilleryOnBus() const
{
    return m_bus->lastQuillery();
}

} // namespace platform
