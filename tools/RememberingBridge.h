// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/ScriptingBridge.h"

#include <optional>

// A bridge that remembers how the import went that a run asked an application for: a run that was
// cancelled meanwhile says no more than that.
class RememberingBridge : public platform::ScriptingBridge {
public:
    explicit RememberingBridge(std::shared_ptr<platform::ScriptingBridge> bridge);

    [[nodiscard]] bool isRunning(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<platform::QuilleryApplication>
    runningQuillery(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<platform::QuilleryApplication>
    installedQuillery(const QString& bundleIdentifier) override;

    struct Import {
        QStringList paths;
        std::optional<platform::Error> error;
    };
    // The import since this was last asked; none when the run did not get so far. To be asked when
    // the run is over.
    [[nodiscard]] std::optional<Import> takeImport();

private:
    [[nodiscard]] std::shared_ptr<platform::QuilleryApplication>
    remembering(const std::shared_ptr<platform::QuilleryApplication>& application);

    const std::shared_ptr<platform::ScriptingBridge> m_bridge;
    // Shared with the applications that were handed out.
    const std::shared_ptr<std::optional<Import>> m_import;
};
