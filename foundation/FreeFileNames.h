// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QUrl>

// Free names for files about to be written, on a file system that counts bytes: what
// makeFilenameUniqueInDirectoryAtURL makes of a name that fits, and fitting still with its number.
//
// Many files may want one name. The number that a name got last is remembered and only looked at
// again, where counting from 1 would take time that grows with the square of their count. The names
// are the same as long as no file under a lower number is removed.
class FreeFileNames {
public:
    // The free name for a file that wants this one. Until there is such a file it is given again.
    [[nodiscard]] QString freeName(const QString& name, const QUrl& directoryUrl);

private:
    [[nodiscard]] QString uniqueName(const QString& name, const QUrl& directoryUrl);

    // By the path of the file under the name as it was wanted.
    QHash<QString, qint64> m_lastNumbers;
};

// The same for one file alone.
[[nodiscard]] QString freeFileNameInDirectoryAtURL(const QString& name, const QUrl& directoryUrl);
