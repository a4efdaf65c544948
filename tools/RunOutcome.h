// SPDX-License-Identifier: MIT
#pragma once

#include "import/ImportManifest.h"
#include "import/ImportReport.h"
#include "platform/core/Error.h"

#include <QString>

#include <memory>
#include <optional>

// How one run ended.
struct RunOutcome {
    enum class End { Imported, Failed, Cancelled };
    enum class Source { File, Notebook };

    Source source = Source::File;
    // The file, or the notebook's name.
    QString file;
    End end = End::Failed;
    ImportReport report;
    // The first error of a run that failed.
    std::optional<platform::Error> error;
    QString logPath;
    double seconds = 0;
    // Of a run that did not succeed: the items that were taken all the same.
    quint64 itemsTaken = 0;
    // Of a run that got to its end, until the destination has done with it.
    std::shared_ptr<const ImportManifest> manifest;
    // The application that was asked to import, for people; empty where none was.
    QString handedTo;

    // Items that are really in the library or the files folder.
    [[nodiscard]] quint64 importedItems() const { return end == End::Imported ? report.items : itemsTaken; }
    // What became of all that the notes held; nothing of a run that did not import them.
    [[nodiscard]] NoteCounts importedCounts() const
    {
        return end == End::Imported ? report.counts : NoteCounts();
    }
};
