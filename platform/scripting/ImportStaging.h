// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/LibraryCatalogue.h"

#include <QStringList>

namespace platform {

// An item that an import left in the files folder.
struct FailedImportItem {
    QString name;
    QString path;
    Error error;
};

// The hidden folder of a library in which one import is under construction, and at the same time its journal,
// from which an import that was interrupted is finished:
//
//   .importing-<UUID>/
//     Import.plist    the values below; written last of all preparations: without it no item was moved
//     0/ 1/ …         one for each library folder to be, until it is moved into the library as a whole
//       .quillery-folder.plist   its catalogue, written before its items arrive: what is to be in it
//       <items>
//
// Items are moved in one at a time, each under its final name, so that what is in a stage is whole and what
// is missing there is still in the files folder.
//
// A file of the staging folder's name in the files folder, the marker, says that it still is the files folder
// that the journal means: every run lays out its files at the same path.
class ImportStaging {
public:
    struct Journal {
        QString manifestPath; // canonical
        QString filesFolder;  // canonical
        bool removesFilesFolder = false;
        QStringList expectedEntries; // see LibraryManifest
        std::vector<FailedImportItem> failedItems;
    };

    // The staging folders that a library holds, by name.
    [[nodiscard]] static QStringList namesIn(const QString& library);
    [[nodiscard]] static QString newName();

    ImportStaging(const QString& library, const QString& name);

    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] const std::optional<Journal>& journal() const { return m_journal; }

    // Makes the folder with a stage for each catalogue, then the marker, then the journal. On failure nothing
    // is left.
    [[nodiscard]] bool create(const Journal& journal, const std::vector<LibraryCatalogue>& catalogues,
                              Error* error);
    // Reads the journal of an import that was interrupted; there is none when it never began.
    void readJournal();
    [[nodiscard]] QString stagePath(size_t number) const
    {
        return m_path + QLatin1Char('/') + QString::number(number);
    }
    // The stages that are not yet in the library, in order.
    [[nodiscard]] QStringList stagePaths() const;

    // Notes the items that were not taken, so that whoever finishes the import keeps the files folder.
    void noteFailedItems(const std::vector<FailedImportItem>& items);

    // The marker is in the files folder.
    [[nodiscard]] bool hasMarker() const;
    void removeMarker();
    [[nodiscard]] QString filePathInFilesFolder(const QString& name) const;

    // Removes the files folder if it holds nothing but what the manifest accounts for, the marker last.
    void removeFilesFolder();
    // Removes the journal and what is left of the stages.
    void remove();

private:
    [[nodiscard]] bool fill(const std::vector<LibraryCatalogue>& catalogues, Error* error) const;
    [[nodiscard]] bool writeJournal(Error* error) const;

    QString m_name;
    QString m_path;
    std::optional<Journal> m_journal;
};

} // namespace platform
