// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/DBusScriptingBridge.h"

namespace platform {

// The session bus where any edition of Quillery runs or is installed there; else what is embedded.
// Decided at the first question and kept, so that a run which began with the one never ends with
// the other. May be used on every thread.
class BusFirstScriptingBridge : public ScriptingBridge {
public:
    BusFirstScriptingBridge(std::shared_ptr<DBusScriptingBridge> bus,
                            std::shared_ptr<ScriptingBridge> embedded);

    [[nodiscard]] bool isRunning(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<QuilleryApplication>
    runningQuillery(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<QuilleryApplication>
    installedQuillery(const QString& bundleIdentifier) override;

    // The Quillery on the bus that was handed out last; null where it was the embedded one, or
    // none.
    [[nodiscard]] std::shared_ptr<DBusQuilleryApplication> lastQuilleryOnBus() const;

private:
    [[nodiscard]] ScriptingBridge& chosen();

    const std::shared_ptr<DBusScriptingBridge> m_bus;
    const std::shared_ptr<ScriptingBridge> m_embedded;
    std::once_flag m_isChosen;
    ScriptingBridge* m_chosen = nullptr;
};

} // namespace platform
