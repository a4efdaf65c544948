// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace platform {

// A text made safe as the name of a file that people see: "/" becomes "-", control characters blanks, a dot
// in front "_", so that it is neither hidden nor means a folder; a text without a name is "Untitled". Of
// any length.
[[nodiscard]] QString safeFileName(const QString& text);

// The longest beginning of a text that takes no more than a number of bytes in UTF-8, cut between
// characters.
[[nodiscard]] QString cutToBytes(const QString& text, qsizetype maximumBytes);

// The names of one folder, to find free ones without asking the file system each time. Names that differ
// only in case or composition count as one, because they are one file on most Macs.
class LibraryNames {
public:
    void insert(const QString& name);

    // "stem.extension", or the first free one of "stem 1.extension", "stem 2.extension" …, safe, of at most
    // maximumFileNameBytes, and taken from now on. A stem that already ends in the extension keeps only
    // that one. The extension is used as it is.
    [[nodiscard]] QString takeFreeName(const QString& stem, const QString& extension = {});

private:
    QSet<QString> m_taken;
    // By the part that all numbered names of a stem share: no lower number is free.
    QHash<QString, int> m_lastNumber;
};

} // namespace platform
