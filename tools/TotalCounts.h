// SPDX-License-Identifier: MIT
#pragma once

#include "tools/RunOutcome.h"

#include <vector>

// What became of the notes of all runs. The numbers add up: every note is an item, was skipped, or was not
// imported because its run failed or was cancelled.
struct TotalCounts {
    quint64 notes = 0;
    quint64 items = 0;
    quint64 skipped = 0;
    // Of the runs that imported their notes.
    NoteCounts content;

    [[nodiscard]] quint64 notImported() const;

    // A sentence such as "3 notes: 2 became items, 1 was skipped."
    [[nodiscard]] QString sentence() const;

    // What became of attachments, tasks and the like, such as "Attachments: 5 (4 shown, 1 left out)."; one line
    // for each that there was any of.
    [[nodiscard]] QStringList contentLines() const;
};

[[nodiscard]] TotalCounts totalCounts(const std::vector<RunOutcome>& outcomes);

// "1 note", "2 notes".
[[nodiscard]] QString countedNotes(quint64 count);
