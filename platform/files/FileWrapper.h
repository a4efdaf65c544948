// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace platform {

// A file or folder tree in memory, before it is written or after it was read.
class FileWrapper {
public:
    using Pointer = std::shared_ptr<FileWrapper>;

    [[nodiscard]] static Pointer regularFile(const QByteArray& contents, const QString& preferredName = {});
    [[nodiscard]] static Pointer directory(const QString& preferredName = {});
    // A regular file whose bytes stay on disk until they are asked for or written elsewhere; the file
    // must not change or go away meanwhile.
    [[nodiscard]] static Pointer fileOnDisk(const QString& path, Error* error = nullptr);

    // Reads a file, or a folder with everything in it. Symbolic links become their text, they are not
    // followed. Null with an error when anything cannot be read.
    [[nodiscard]] static Pointer read(const QString& path, Error* error = nullptr);

    [[nodiscard]] bool isDirectory() const { return m_isDirectory; }
    [[nodiscard]] bool isRegularFile() const { return !m_isDirectory; }

    // The name that the file would like to have; inside a folder its key may differ.
    [[nodiscard]] const QString& preferredFilename() const { return m_preferredFilename; }
    void setPreferredFilename(const QString& name) { m_preferredFilename = name; }

    // A regular file's bytes.
    [[nodiscard]] QByteArray contents() const;

    // One child of a folder: its key is its name on disk, unique within the folder.
    struct Child {
        QString key;
        Pointer wrapper;
    };
    // In the order in which they were added.
    [[nodiscard]] const std::vector<Child>& children() const { return m_children; }
    [[nodiscard]] Pointer childForKey(const QString& key) const;

    // Adds a child under its preferred name, or, when that name is taken, under N__#$!@%!#__name with the
    // first free N from 1, as the platform does. Returns the key.
    QString addFileWrapper(const Pointer& child);
    void removeFileWrapper(const QString& key);

    // Atomic: written beside the target under a private name and moved into place, so that the target is
    // the old one or the new one, whole. A child key that would leave the folder fails the write.
    enum class WriteMode { Direct, Atomic };
    [[nodiscard]] bool writeTo(const QString& path, WriteMode mode, Error* error = nullptr) const;

private:
    FileWrapper() = default;

    bool m_isDirectory = false;
    QString m_preferredFilename;
    QByteArray m_contents;
    QString m_pathOnDisk; // where the bytes are when they are not in m_contents
    std::vector<Child> m_children;
};

} // namespace platform
