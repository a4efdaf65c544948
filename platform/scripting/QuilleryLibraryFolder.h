// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/ImportStaging.h"
#include "platform/scripting/QuilleryApplication.h"

namespace platform {

class LibraryImport;
class LibraryNames;

// A Quillery whose library is a plain folder: it carries a manifest out itself.
//
// Each folder record becomes a new folder in the library under its name, each item a file in it under its
// display name, with its dates, tags, origin and hidden extension; everything that the manifest says is kept
// in a catalogue beside them (see LibraryCatalogue). Then the files folder is removed. An import adds, it
// never overwrites.
//
// It believes nothing in a manifest: what names a path outside the files folder is refused before anything is
// touched. Interrupted at any point, every item is whole in the files folder or in the library, and the next
// import finishes it first (see ImportStaging).
class QuilleryLibraryFolder : public QuilleryApplication {
public:
    // The folder is made by the first import.
    explicit QuilleryLibraryFolder(const QString& directory);

    [[nodiscard]] QString version() override;
    void activate() override {}

    // Takes manifests only, and no destination, rating, comments, label or tags. Waits while another program
    // imports into the same library. Errors are in QuilleryLibraryErrorDomain. With ItemsNotTaken the other
    // items are in the library, and the files folder stays.
    [[nodiscard]] bool importFiles(const QStringList& paths, ImportMode by, const QString& to, int withRating,
                                   const QString& withComments, int withLabel, const QStringList& withTags,
                                   Error* error = nullptr) override;

    // Finishes what an interrupted import left in the library; importFiles does so first.
    [[nodiscard]] bool finishInterruptedImports(Error* error = nullptr);

    [[nodiscard]] const QString& directory() const { return m_directory; }
    // The library folders that the last call made.
    [[nodiscard]] const QStringList& lastImportedFolders() const { return m_lastImportedFolders; }
    // The items that the last call could not take.
    [[nodiscard]] const std::vector<FailedImportItem>& lastFailedItems() const { return m_lastFailedItems; }

private:
    [[nodiscard]] bool importLocked(const QStringList& paths, Error* error);
    [[nodiscard]] bool finishInterrupted(LibraryNames& names, QStringList& handledManifests, Error* error);
    [[nodiscard]] bool finish(LibraryImport& import, Error* error);
    [[nodiscard]] bool reportFailedItems(Error* error) const;

    QString m_directory;
    QStringList m_lastImportedFolders;
    std::vector<FailedImportItem> m_lastFailedItems;
};

} // namespace platform
