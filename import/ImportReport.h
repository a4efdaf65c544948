// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EnexCensus.h"
#include "enex/NoteCounts.h"
#include "platform/core/Error.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

// What became of the notes of a run: for the person who asked, where the log is for whoever looks for causes.
// Every note that was handled is an item or stands among the skipped.
struct ImportReport {
    struct SkippedNote {
        QString title;
        // None only when nobody could say why.
        std::optional<platform::Error> error;
    };
    struct Warning {
        QString title; // of the note
        QString text;
    };

    // As counted before the conversion.
    quint64 notes = 0;
    quint64 items = 0;
    std::vector<SkippedNote> skipped;
    std::vector<Warning> warnings;
    // What the person should know of the run as a whole, in their language.
    QStringList remarks;

    // Of all notes that were handled.
    NoteCounts counts;

    // Whether the file is of today's Evernote, and was read whole. Of a run over one file.
    ModernFileSigns modernSigns;
    bool isReadAsModern = false;
    // It was so because of the signs alone: nobody had asked for it.
    bool isRecognizedAsModern = false;
};
