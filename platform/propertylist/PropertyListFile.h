// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

namespace platform {

// A file under a private name beside its own, which commit() puts into place. Without a commit that
// succeeds, what was there stays, and the private file goes with the object.
class PropertyListFile {
public:
    // Where the private file cannot be made, the device is closed and the commit fails.
    explicit PropertyListFile(const QString& path);

    // What is written may stay in a buffer until the commit.
    [[nodiscard]] QIODevice& device() { return m_file; }

    // A failure shows at the commit.
    void write(QByteArrayView bytes);

    // False with the system's reason when not every byte has reached the disk, or the file could
    // not take its place.
    [[nodiscard]] bool commit(Error* error = nullptr);

private:
    QSaveFile m_file;
};

} // namespace platform
