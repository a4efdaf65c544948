// SPDX-License-Identifier: MIT
#pragma once

#include "import/ItemRecordList.h"
#include "platform/core/Error.h"
#include "platform/scripting/ImportManifest.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <vector>

// The manifest of a run while it is being built: folder records, and the item records of each folder.
class ImportManifest {
public:
    // filesPath: the run's files folder, which the notes application deletes after the import.
    explicit ImportManifest(const QString& filesPath);

    // A record of a folder at the top of the library, not yet entered: name, a new identifier, and the time
    // of the import as its comment.
    [[nodiscard]] static platform::manifest::Record newFolderRecord(const QString& name);

    // Takes out of an item's record the dates that the file has no place for: those outside the years 1 to 9999, as
    // damaged exports have them. False when there are none.
    static bool removeUnwritableDates(QVariantMap& item);

    // The record stays shared: what is put into it later is in the manifest, too.
    void addFolder(const platform::manifest::Record& folder);

    // Enters a notebook's items, in order, and lists them in its folder record, each identifier once: of several
    // items of one identifier the last is the one that the manifest has. They learn their folder only in the
    // property list: the records stay shared with the caller's list, and as they are.
    void addItems(const ItemRecordList& items, const platform::manifest::Record& folder);

    // Enters a folder of another manifest with its items, whose files were moved from one folder to the other.
    void addMovedFolder(const ImportManifest& other, const QString& identifier, const QString& from, const QString& to);

    [[nodiscard]] const QMap<QString, platform::manifest::Record>& folders() const { return m_folders; }

    // The property list as it stands in the file, all of it in memory at once.
    [[nodiscard]] QVariantMap propertyList() const;

    // Writes the XML property list to the manifest's file in the files folder, one item at a time. After a
    // failure there is no file, or the one that was there before.
    [[nodiscard]] bool write(platform::Error* error = nullptr) const { return writeToFile(path(), error); }
    // The same to another place, for a files folder that is not yet where it will be.
    [[nodiscard]] bool writeToFile(const QString& path, platform::Error* error = nullptr) const;
    [[nodiscard]] QString path() const;

private:
    struct FolderItems {
        ItemRecordList records;
        // Of the items, in order.
        QStringList identifiers;
        QVariant folderIdentifier;
    };
    // An item's place: which folder, and which of its records.
    struct Place {
        std::size_t folder = 0;
        qsizetype record = 0;
    };

    [[nodiscard]] const QString& identifierAt(const Place& place) const;
    [[nodiscard]] QVariantMap itemAt(const Place& place) const;
    // In the order of the identifiers; of several items of one identifier the last alone.
    [[nodiscard]] std::vector<Place> itemPlaces() const;

    QString m_filesPath;
    QMap<QString, platform::manifest::Record> m_folders;
    std::vector<FolderItems> m_items;
};
