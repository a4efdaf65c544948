// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusConnection.h"
#include "platform/dbus/CallLimits.h"
#include "platform/scripting/EvernoteApplication.h"
#include "platform/scripting/ScriptingBridge.h"

namespace platform {

class DBusQuilleryApplication;

// The applications on the session bus: running is what owns its bundle identifier as a bus name,
// installed what does so or can be started by the bus. Without a bus there is none. May be used on
// every thread.
class DBusScriptingBridge : public ScriptingBridge {
public:
    explicit DBusScriptingBridge(
        std::shared_ptr<BusConnection> bus = std::make_shared<BusConnection>(),
        const CallLimits& limits = {});

    [[nodiscard]] bool isRunning(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<QuilleryApplication>
    runningQuillery(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<QuilleryApplication>
    installedQuillery(const QString& bundleIdentifier) override;

    // Any edition of Quillery runs or is installed.
    [[nodiscard]] bool hasQuillery();
    // The proxy that was handed out last; null before.
    [[nodiscard]] std::shared_ptr<DBusQuilleryApplication> lastQuillery() const;

    // Null when Evernote neither runs nor is installed.
    [[nodiscard]] std::shared_ptr<EvernoteApplication> installedEvernote();

private:
    [[nodiscard]] bool isInstalled(const QString& bundleIdentifier);
    [[nodiscard]] std::shared_ptr<QuilleryApplication>
    makeQuillery(const QString& bundleIdentifier);

    const std::shared_ptr<BusConnection> m_bus;
    const CallLimits m_limits;
    mutable std::mutex m_mutex;
    std::shared_ptr<DBusQuilleryApplication> m_lastQuillery;
};

} // namespace platform
