// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

// File names on a file system that counts bytes. A name of 255 UTF-16 code units may need three times as
// many bytes of UTF-8; file systems here take 255.

// The name, or its beginning followed by its extension, in at most maximumBytes bytes of UTF-8. Cut between
// characters as a reader sees them, never within one.
[[nodiscard]] QString fileNameFittingBytes(const QString& name, qsizetype maximumBytes);

// A free name in the folder for a file about to be written: makeFilenameUniqueInDirectoryAtURL on a name that
// fits the file system, and fitting it still with its number.
[[nodiscard]] QString freeFileNameInDirectoryAtURL(const QString& name, const QUrl& directoryUrl);
