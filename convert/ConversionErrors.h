// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The errors of a note's conversion.

inline const QString evernoteXMLItemErrorDomain = QStringLiteral("EvernoteXMLItemErrorDomain");

enum EvernoteXMLItemErrorCode : int {
    // A tag of Evernote's markup that has no end.
    EvernoteXMLItemErrorMalformedTag = 1001,
    // A clip that no web archive can hold; it becomes a note.
    EvernoteXMLItemErrorNoWebArchive = 1002
};
