// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/QuilleryLibraryFolder.h"
#include "tools/ImportDestination.h"

// The embedded library at a path, else where the setting "QuilleryLibraryFolder" says, else the folder "Quillery
// Library" in the user's documents.
class LibraryDestination : public ImportDestination {
public:
    explicit LibraryDestination(const QString& directory);

    [[nodiscard]] Readiness prepare(const ImportOptions& options, QString* problem) override;
    [[nodiscard]] std::shared_ptr<platform::ScriptingBridge> bridge() override;
    [[nodiscard]] RunDirectories directories() override;
    [[nodiscard]] QStringList finishRun(RunOutcome& outcome) override;

private:
    std::shared_ptr<platform::QuilleryLibraryFolder> m_library;
    // Runs share one files folder, so one process runs at a time.
    std::unique_ptr<QLockFile> m_lock;
};
