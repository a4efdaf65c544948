// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

#include <memory>
#include <vector>

namespace platform {

// A file or folder tree in memory, before it is written or after it was read.
class FileWrapper {
public:
    using Pointer = std::shared_ptr<FileWrapper>;

    [[nodiscard]] static Pointer regularFile(const QByteArray& contents,
                                             const QString& preferredName = {});
    [[nodiscard]] static Pointer directory(const QString& preferredName = {});
    // A regular file whose bytes stay on disk until they are asked for or written elsewhere; the
    // file must not change or go away meanwhile. Null with an error when it is none or cannot be
    // read.
    [[nodiscard]] static Pointer fileOnDisk(const QString& path, Error* error = nullptr);

    // Reads a file, or a folder with everything in it, its children in the order of their names.
    // Symbolic links become their text, they are not followed. Null with an error when anything
    // cannot be read.
    [[nodiscard]] static Pointer read(const QString& path, Error* error = nullptr);

    ~FileWrapper();
    FileWrapper(const FileWrapper&) = delete;
    FileWrapper& operator=(const FileWrapper&) = delete;

    [[nodiscard]] bool isDirectory() const { return m_isDirectory; }
    [[nodiscard]] bool isRegularFile() const { return !m_isDirectory; }

    // The name that the file would like to have; inside a folder its key may differ.
    [[nodiscard]] const QString& preferredFilename() const { return m_preferredFilename; }
    void setPreferredFilename(const QString& name) { m_preferredFilename = name; }

    // A regular file's bytes; none for a folder, and none with an error when they are on disk and
    // cannot be read.
    [[nodiscard]] QByteArray contents(Error* error = nullptr) const;

    // One child of a folder: its key is its name on disk, unique within the folder.
    struct Child {
        QString key;
        Pointer wrapper;
    };
    // In the order in which they were added.
    [[nodiscard]] const std::vector<Child>& children() const { return m_children; }
    [[nodiscard]] Pointer childForKey(const QString& key) const
    {
        return m_childrenByKey.value(key);
    }

    // Adds a child under its preferred name, or, when that name is taken, under N__#$!@%!#__name
    // with the first free N from 1, as the platform does. Returns the key. Names that differ only
    // in case or in the composition of their letters count as one name, because they are one file
    // on most Macs.
    QString addFileWrapper(const Pointer& child);
    void removeFileWrapper(const QString& key);

    // Atomic: written beside the target under a private name and moved into place, so that the
    // target is the old one or the new one, whole. Direct: a folder is made where nothing may exist
    // yet, a file is written in place. Either leaves nothing of a write that failed. A child key
    // that would leave the folder, or that the file system does not take, fails the write.
    enum class WriteMode { Direct, Atomic };
    [[nodiscard]] bool writeTo(const QString& path, WriteMode mode, Error* error = nullptr) const;

private:
    FileWrapper() = default;
    void addChild(const QString& key, const Pointer& child);

    bool m_isDirectory = false;
    QString m_preferredFilename;
    QByteArray m_contents;
    QString m_pathOnDisk; // where the bytes are when they are not in m_contents
    std::vector<Child> m_children;
    QHash<QString, Pointer> m_childrenByKey;
    QSet<QString> m_takenNames;             // as comparableName() gives them
    QHash<QString, int> m_nextNumberByName; // no lower number is free for this name
};

} // namespace platform
