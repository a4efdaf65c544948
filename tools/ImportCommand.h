// SPDX-License-Identifier: MIT
#pragma once

#include "tools/ImportDestination.h"
#include "tools/ImportOptions.h"
#include "tools/RunOutcome.h"

#include <memory>
#include <vector>

// The exit statuses of vupuge-import.
enum class ExitStatus : int {
    Success = 0,
    RunFailed = 1, // or was cancelled
    WrongUsage = 2,
    NotesSkipped = 3 // only where asked for
};

// Imports the files of a command line, one run each, and says what became of them.
class ImportCommand {
public:
    explicit ImportCommand(ImportOptions options);

    [[nodiscard]] ExitStatus execute();

private:
    void runFiles(ImportDestination& destination);
    void printOutcome(const RunOutcome& outcome, const QStringList& places) const;
    void printSummary() const;
    [[nodiscard]] bool writeReport() const;
    [[nodiscard]] ExitStatus status() const;

    ImportOptions m_options;
    std::vector<RunOutcome> m_outcomes;
    bool m_interrupted = false;
};
