// SPDX-License-Identifier: MIT
#pragma once

#include "tools/ImportDestination.h"
#include "tools/ImportOptions.h"
#include "tools/RunOutcome.h"

#include <QHash>

#include <memory>
#include <vector>

class FileRun;
class ProgressDisplay;

// The exit statuses of vupuge-import.
enum class ExitStatus : int {
    Success = 0,
    RunFailed = 1, // or was cancelled, or an earlier import could not be finished whole
    WrongUsage = 2,
    NotesSkipped = 3 // only where asked for
};

// Imports the files of a command line, one run each, and says what became of them.
class ImportCommand {
public:
    explicit ImportCommand(ImportOptions options);

    [[nodiscard]] ExitStatus execute();

private:
    void checkFiles();
    [[nodiscard]] ExitStatus prepare(ImportDestination& destination);
    void runFiles(ImportDestination& destination);
    [[nodiscard]] RunOutcome runFile(const QString& file, ImportDestination& destination,
                                     ProgressDisplay& progress, QStringList& places);
    void interrupt();
    [[nodiscard]] bool writeReport() const;
    [[nodiscard]] ExitStatus status() const;

    ImportOptions m_options;
    // Files that need not be tried, and why.
    QHash<QString, platform::Error> m_unreadable;
    EarlierImport m_earlierImport;
    std::vector<RunOutcome> m_outcomes;
    FileRun* m_currentRun = nullptr;
    bool m_interrupted = false;
};
