// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

// The errors of a folder of exports.

inline const QString evernoteExportsErrorDomain = QStringLiteral("EvernoteExportsErrorDomain");

enum EvernoteExportsErrorCode : int {
    EvernoteExportsErrorFileChanged = 1, // while it was read, or since its notes were listed
    EvernoteExportsErrorForeignNote = 2, // a note of another application
    EvernoteExportsErrorNotWritten = 3
};

[[nodiscard]] platform::Error fileChangedError(const QString& path);
// reason: the system's.
[[nodiscard]] platform::Error exportNotWrittenError(const QString& path, const QString& reason);
