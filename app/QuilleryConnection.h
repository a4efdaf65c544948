// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusFirstScriptingBridge.h"

#include <memory>

// How the window's runs find the notes application: on the session bus, else the embedded library.
class QuilleryConnection {
public:
    // For the next run, which looks anew.
    [[nodiscard]] std::shared_ptr<platform::ScriptingBridge> newBridge();

    // The folder in which people see what the last run imported: the embedded library, or the one
    // that the application named. Empty when it named none.
    [[nodiscard]] QString libraryFolder() const;

private:
    std::shared_ptr<platform::BusFirstScriptingBridge> m_lastBridge;
};
