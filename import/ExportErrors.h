// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The errors of a run.

inline const QString evernoteExportErrorDomain = QStringLiteral("EvernoteExport");

enum EvernoteExportErrorCode : int {
    EvernoteExportErrorNoFileWrapper = 10001,
    EvernoteExportErrorQuilleryTooOld = 10002,
    EvernoteExportErrorNoQuillery = 10003,
    EvernoteExportErrorNoDirectory = 10004,
    EvernoteExportErrorCancelled = 10005,
    // These end no run; they stand in the report only.
    EvernoteExportErrorNoteNotExported = 10101,
    EvernoteExportErrorNoteReplaced = 10102
};
