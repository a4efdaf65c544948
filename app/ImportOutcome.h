// SPDX-License-Identifier: MIT
#pragma once

#include "import/ImportReport.h"
#include "platform/core/Error.h"

#include <QString>

#include <optional>

// How a run ended, for the person who began it.
struct ImportOutcome {
    enum class End { Imported, Failed, Cancelled };

    // The file's name; empty for a run over notebooks.
    QString source;
    End end = End::Failed;
    ImportReport report;
    // The first error of a run that failed; none when nobody could say why.
    std::optional<platform::Error> error;
    // Empty when the run ended before it had a log.
    QString logPath;

    [[nodiscard]] quint64 importedItems() const { return end == End::Imported ? report.items : 0; }
    // What became of all that the notes held; nothing of a run that did not import them.
    [[nodiscard]] NoteCounts importedCounts() const
    {
        return end == End::Imported ? report.counts : NoteCounts();
    }
};
