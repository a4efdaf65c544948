// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

// The file-name pair: every file or folder that is made from a person's text is named by the first
// and then the second of these. All lengths in UTF-16 code units.

// The text as a file name: trimmed, not hidden (a first "." becomes "-"), with "-" for each of "/",
// ":" and
// "~", cut at its first line break, at most 255 long with its path extension kept. Empty only when
// the text is empty or blank. Throws std::out_of_range for a name over 255 whose extension alone is
// longer than 254.
[[nodiscard]] QString stringSanitizedForFileName(const QString& text);

// The name when nothing in the folder has it, whatever it holds; else the first of "base 1.ext",
// "base 2.ext", … that is free, made a file name as above.
[[nodiscard]] QString makeFilenameUniqueInDirectoryAtURL(const QString& name,
                                                         const QUrl& directoryUrl);

// The same for a caller who has been given numbers for this name before. number: the first one to
// try, and then the one that the returned name bears, unless the name is free without one.
[[nodiscard]] QString makeFilenameUniqueInDirectoryAtURL(const QString& name,
                                                         const QUrl& directoryUrl, qint64& number);
