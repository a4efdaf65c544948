// SPDX-License-Identifier: MIT
#pragma once

#include "import/ImportReport.h"
#include "platform/core/Error.h"

#include <QString>

#include <optional>

// How one file's run ended.
struct RunOutcome {
    enum class End { Imported, Failed, Cancelled };

    QString file;
    End end = End::Failed;
    ImportReport report;
    // The first error of a run that failed.
    std::optional<platform::Error> error;
    QString logPath;
    double seconds = 0;
    // Of a run that did not succeed: the items that were taken all the same.
    quint64 itemsTaken = 0;

    // Items that are really in the library or the files folder.
    [[nodiscard]] quint64 importedItems() const { return end == End::Imported ? report.items : itemsTaken; }
};
