// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteXMLFileExportOperation.h"
#include "tools/ImportDestination.h"
#include "tools/ImportOptions.h"
#include "tools/ImportSource.h"
#include "tools/RunOutcome.h"

#include <memory>
#include <vector>

class ImportRun;
class ProgressDisplay;

// The exit statuses of vupuge-import.
enum class ExitStatus : int {
    Success = 0,
    RunFailed = 1, // or was cancelled, or an earlier import could not be finished whole
    WrongUsage = 2,
    NotesSkipped = 3 // only where asked for
};

// Imports the files or notebooks of a command line, one run each, and says what became of them.
class ImportCommand {
public:
    explicit ImportCommand(ImportOptions options);

    [[nodiscard]] ExitStatus execute();

private:
    // Anything but success ends the command.
    [[nodiscard]] ExitStatus findSources();
    [[nodiscard]] ExitStatus findNotebooks();
    void findFiles();
    [[nodiscard]] ExitStatus prepare(ImportDestination& destination);
    void runAll(ImportDestination& destination);
    [[nodiscard]] RunOutcome runSource(const ImportSource& source, ImportDestination& destination,
                                       ProgressDisplay& progress, QStringList& places);
    [[nodiscard]] EvernoteXMLFileExportOperation::ModernFiles modernFiles() const;
    void interrupt();
    [[nodiscard]] bool writeReport() const;
    [[nodiscard]] ExitStatus status() const;

    ImportOptions m_options;
    std::vector<ImportSource> m_sources;
    EarlierImport m_earlierImport;
    std::vector<RunOutcome> m_outcomes;
    ImportRun* m_currentRun = nullptr;
    bool m_interrupted = false;
};
