// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/ScriptingBridge.h"

namespace platform {

// A machine on which nothing runs and one given application counts as the installed Quillery, under its
// first identifier.
class EmbeddedScriptingBridge : public ScriptingBridge {
public:
    explicit EmbeddedScriptingBridge(std::shared_ptr<QuilleryApplication> installed)
        : m_installed(std::move(installed))
    {
    }

    [[nodiscard]] bool isRunning(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<QuilleryApplication>
    runningQuillery(const QString& bundleIdentifier) override;
    [[nodiscard]] std::shared_ptr<QuilleryApplication>
    installedQuillery(const QString& bundleIdentifier) override;

private:
    std::shared_ptr<QuilleryApplication> m_installed;
};

} // namespace platform
