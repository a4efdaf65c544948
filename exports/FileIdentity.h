// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

// What tells one state of a file from every other: an equal identity means equal bytes, as far as a
// file system lets anybody know without reading them.
struct FileIdentity {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0; // bytes
    // Nanoseconds since 1970. The second is the file system's own and nobody can set it.
    qint64 modified = 0;
    qint64 changed = 0;

    // Of the file at a path, links followed; none, with the errno set, when there is none.
    [[nodiscard]] static std::optional<FileIdentity> ofFile(const QString& path);
    // Of an open file.
    [[nodiscard]] static std::optional<FileIdentity> ofDescriptor(int descriptor);

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};
