// SPDX-License-Identifier: MIT
#include "tools/LibraryDestination.h"

#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/scripting/EmbeddedScriptingBridge.h"

namespace {

QString libraryDirectory(const QString& chosen)
{
    if (!chosen.isEmpty())
        return chosen;
    const std::optional<QString> setting
        = platform::UserDefaults::standard().stringForKey(QStringLiteral("QuilleryLibraryFolder"));
    if (setting && !setting->isEmpty())
        return *setting;
    return platform::StandardDirectories::documents() + QStringLiteral("/Quillery Library");
}

} // namespace

LibraryDestination::LibraryDestination(const QString& directory)
    : m_library(std::make_shared<platform::QuilleryLibraryFolder>(libraryDirectory(directory)))
{
}

ImportDestination::Readiness LibraryDestination::prepare(const ImportOptions&, QString* problem)
{
    const QString temporary = platform::StandardDirectories::temporary();
    if (temporary.isEmpty()) {
        *problem = QStringLiteral("There is no private temporary folder, and none can be made.");
        return Readiness::Failure;
    }
    m_lock = std::make_unique<QLockFile>(temporary + QStringLiteral("/Evernote.lock"));
    // Only a process that is gone makes a lock stale, however long an import takes.
    m_lock->setStaleLockTime(0);
    if (!m_lock->tryLock()) {
        *problem = QStringLiteral("Another import is running.");
        return Readiness::Failure;
    }
    platform::Error error;
    if (!m_library->finishInterruptedImports(&error)) {
        *problem = error.localizedDescription();
        return Readiness::Failure;
    }
    return Readiness::Ready;
}

std::shared_ptr<platform::ScriptingBridge> LibraryDestination::bridge()
{
    return std::make_shared<platform::EmbeddedScriptingBridge>(m_library);
}

RunDirectories LibraryDestination::directories() { return RunDirectories::standard(); }

QStringList LibraryDestination::finishRun(RunOutcome&) { return m_library->lastImportedFolders(); }
