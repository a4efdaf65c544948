// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
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

// Free names in a folder that only grows, for many files that may want the same one: it remembers how far it
// has counted, where freeFileNameInDirectoryAtURL counts from 1 each time. The names are the same.
class FreeFileNames {
public:
    explicit FreeFileNames(const QUrl& directoryUrl);

    // The next free name for a file that wants this one. To be taken before the next call.
    [[nodiscard]] QString freeName(const QString& name);

private:
    QUrl m_directoryUrl;
    QHash<QString, qint64> m_nextNumbers;
};

// stringSanitizedForFileName for a text of any length, which it cuts where that would raise.
[[nodiscard]] QString fileNameFromTitle(const QString& title);
