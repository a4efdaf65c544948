// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QStringList>
#include <QVariantMap>

#include <optional>
#include <vector>

namespace platform {

// A manifest that was read and checked: every record has its type, every item belongs to a folder record,
// and no item's file lies outside the files folder.
class LibraryManifest {
public:
    struct Item {
        QString identifier;
        QVariantMap record;
        QString sourceFile;         // relative to the files folder
        std::optional<Error> error; // why it cannot be taken
    };
    struct Folder {
        QString identifier;
        QVariantMap record;
        // In the order of the folder record's "items", those that it does not name after them.
        std::vector<Item> items;
    };

    // Takes the XML and the binary form. Nothing is touched; any fault but a missing or unreadable item
    // refuses the manifest whole.
    [[nodiscard]] static std::optional<LibraryManifest> read(const QString& path, Error* error = nullptr);

    [[nodiscard]] const QString& path() const { return m_path; }
    // The folder that holds the manifest.
    [[nodiscard]] const QString& filesFolder() const { return m_filesFolder; }
    // The manifest asks for the files folder to be removed when all is taken.
    [[nodiscard]] bool removesFilesFolder() const { return m_removesFilesFolder; }
    // What the manifest says beside its records.
    [[nodiscard]] const QVariantMap& otherValues() const { return m_otherValues; }
    // By name.
    [[nodiscard]] std::vector<Folder>& folders() { return m_folders; }

    // The entries of the files folder that the manifest accounts for: itself, the folders of its items and
    // those named like its folder records. Where there is more, the folder serves something else as well.
    [[nodiscard]] QStringList expectedEntries() const;

private:
    [[nodiscard]] bool readTopLevel(const QVariant& list, Error* error);
    [[nodiscard]] bool readFolders(const QVariantMap& records, Error* error);
    [[nodiscard]] bool readItems(const QVariantMap& records, Error* error);
    [[nodiscard]] bool checkSources(Error* error);

    QString m_path;
    QString m_filesFolder;
    bool m_removesFilesFolder = false;
    QVariantMap m_otherValues;
    std::vector<Folder> m_folders;
};

} // namespace platform
