// SPDX-License-Identifier: MIT
#include "app/QuilleryConnection.h"

#include "platform/core/SystemLog.h"
#include "platform/dbus/DBusQuilleryApplication.h"
#include "platform/scripting/EmbeddedLibrary.h"
#include "platform/scripting/EmbeddedScriptingBridge.h"
#include "platform/scripting/QuilleryLibraryFolder.h"

namespace {

// The embedded library. A run that finds it begins by removing the files folder, in which an import
// that was interrupted still has what it did not take; so that one is finished first.
class EmbeddedLibraryBridge : public platform::EmbeddedScriptingBridge {
public:
    explicit EmbeddedLibraryBridge(const std::shared_ptr<platform::QuilleryLibraryFolder>& library)
        : EmbeddedScriptingBridge(library)
        , m_library(library)
    {
    }

    [[nodiscard]] std::shared_ptr<platform::QuilleryApplication>
    installedQuillery(const QString& bundleIdentifier) override
    {
        platform::Error error;
        if (!m_library->finishInterruptedImports(&error))
            platform::systemLog(error.description());
        return EmbeddedScriptingBridge::installedQuillery(bundleIdentifier);
    }

private:
    const std::shared_ptr<platform::QuilleryLibraryFolder> m_library;
};

} // namespace

std::shared_ptr<platform::ScriptingBridge> QuilleryConnection::newBridge()
{
    const auto library =
        std::make_shared<platform::QuilleryLibraryFolder>(platform::embeddedLibraryFolder());
    m_lastBridge = std::make_shared<platform::BusFirstScriptingBridge>(
        std::make_shared<platform::DBusScriptingBridge>(),
        std::make_shared<EmbeddedLibraryBridge>(library));
    return m_lastBridge;
}

QString QuilleryConnection::libraryFolder() const
{
    const auto onBus = m_lastBridge ? m_lastBridge->lastQuilleryOnBus() : nullptr;
    return onBus ? onBus->libraryFolder() : platform::embeddedLibraryFolder();
}
