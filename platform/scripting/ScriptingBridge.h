// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/QuilleryApplication.h"

#include <QString>

#include <memory>

namespace platform {

// Finds the applications that can be scripted, by bundle identifier.
class ScriptingBridge {
public:
    virtual ~ScriptingBridge();

    // At least one instance of the application is running.
    [[nodiscard]] virtual bool isRunning(const QString& bundleIdentifier) = 0;
    // A proxy of the first running instance; null when none can be made.
    [[nodiscard]] virtual std::shared_ptr<QuilleryApplication>
    runningQuillery(const QString& bundleIdentifier) = 0;
    // A proxy of the installed application, running or not; null when it is not installed.
    [[nodiscard]] virtual std::shared_ptr<QuilleryApplication>
    installedQuillery(const QString& bundleIdentifier) = 0;
};

} // namespace platform
