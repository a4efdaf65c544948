// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// What notes held beside their text, and what became of it. Of one note or of many, these agree:
//
//     resources = shownResources + keptResources + leftOutResources + resourcesOfSkippedNotes
//     tasks     = taskLines + leftOutTasks + tasksOfSkippedNotes
//     links     = resolvedLinks + links that stayed as they were
struct NoteCounts {
    // Attached files that the notes hold.
    quint64 resources = 0;
    // Those that their note's body names, and that its item therefore shows or is.
    quint64 shownResources = 0;
    // Those that no body names and that were added at their note's end.
    quint64 keptResources = 0;
    // Those that did not come across although their note did.
    quint64 leftOutResources = 0;
    quint64 resourcesOfSkippedNotes = 0;

    // Places in bodies that name an attachment which the note does not hold.
    quint64 missingAttachments = 0;
    // Passages that are encrypted in the file; they stay unreadable.
    quint64 encryptedPassages = 0;

    quint64 tasks = 0;
    // Tasks that are to-do lines of their note.
    quint64 taskLines = 0;
    quint64 leftOutTasks = 0;
    quint64 tasksOfSkippedNotes = 0;

    // Links to other notes (evernote:///view/…) in the bodies of notes that came across.
    quint64 links = 0;
    // Those that lead to an imported item now.
    quint64 resolvedLinks = 0;

    NoteCounts& operator+=(const NoteCounts& other);

    // The counts of a note that was skipped after all.
    [[nodiscard]] NoteCounts ofSkippedNote() const;

    friend bool operator==(const NoteCounts&, const NoteCounts&) = default;
};
