// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/scripting/ImportManifest.h"

#include <QMap>
#include <QString>
#include <QVariantMap>

// The manifest of a run while it is being built: folder records and item records by identifier.
class ImportManifest {
public:
    // filesPath: the run's files folder, which the notes application deletes after the import.
    explicit ImportManifest(const QString& filesPath);

    // A record of a folder at the top of the library, not yet entered: name, a new identifier, and the time
    // of the import as its comment.
    [[nodiscard]] static platform::manifest::Record newFolderRecord(const QString& name);

    // The record stays shared: what is put into it later is in the manifest, too.
    void addFolder(const platform::manifest::Record& folder);

    // Enters a notebook's items, in order, and lists them in its folder record. The item records are copied.
    void addItems(const QList<platform::manifest::Record>& items, const platform::manifest::Record& folder);

    [[nodiscard]] const QMap<QString, platform::manifest::Record>& folders() const { return m_folders; }
    [[nodiscard]] const QMap<QString, platform::manifest::Record>& items() const { return m_items; }

    // The property list as it stands in the file.
    [[nodiscard]] QVariantMap propertyList() const;

    // Writes the XML property list to the manifest's file in the files folder.
    [[nodiscard]] bool write(platform::Error* error = nullptr) const;
    [[nodiscard]] QString path() const;

private:
    QString m_filesPath;
    QMap<QString, platform::manifest::Record> m_folders;
    QMap<QString, platform::manifest::Record> m_items;
};
