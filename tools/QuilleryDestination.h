// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/DBusScriptingBridge.h"
#include "tools/FilesFolderLock.h"
#include "tools/ImportDestination.h"
#include "tools/RememberingBridge.h"

// The Quillery that runs or is installed on the session bus. What it makes of an import it knows
// itself; here it is only known what it took.
class QuilleryDestination : public ImportDestination {
public:
    explicit QuilleryDestination(std::shared_ptr<platform::DBusScriptingBridge> bus);

    [[nodiscard]] Readiness prepare(const QStringList& files, QString* problem) override;
    [[nodiscard]] std::shared_ptr<platform::ScriptingBridge> bridge() override { return m_bridge; }
    [[nodiscard]] RunDirectories directories() override { return m_directories; }
    [[nodiscard]] QStringList finishRun(RunOutcome& outcome) override;

private:
    void correctFailure(RunOutcome& outcome, const RememberingBridge::Import& import) const;

    const std::shared_ptr<platform::DBusScriptingBridge> m_bus;
    const std::shared_ptr<RememberingBridge> m_bridge;
    const RunDirectories m_directories = RunDirectories::standard();
    // All of a user's runs into Quillery share its files folder, those of the window, too.
    FilesFolderLock m_lock;
};
