// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// File names on a file system that counts bytes. A name of 255 UTF-16 code units may need three
// times as many bytes of UTF-8; file systems here take 255.

// The name, or its beginning followed by its extension, in at most maximumBytes bytes of UTF-8. Cut
// between characters as a reader sees them, never within one.
[[nodiscard]] QString fileNameFittingBytes(const QString& name, qsizetype maximumBytes);

// stringSanitizedForFileName for a text of any length, which it cuts where that would raise.
[[nodiscard]] QString fileNameFromTitle(const QString& title);
