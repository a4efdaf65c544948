// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/ImportStaging.h"
#include "platform/scripting/LibraryManifest.h"
#include "platform/scripting/LibraryNames.h"
#include "platform/scripting/ManifestSources.h"

namespace platform {

// One import into a library folder, from the checked manifest or from what an interrupted one left.
class LibraryImport {
public:
    // names: those of the library's entries, of which this import takes more.
    LibraryImport(const QString& library, LibraryNames& names);

    // Plans the import and lays down its journal. On failure nothing was touched.
    [[nodiscard]] bool begin(LibraryManifest& manifest, Error* error);
    // Takes up what an interrupted import left in the library.
    void resume(const QString& stagingName);

    // Moves items and folders into the library and removes the files folder when all were taken. False when
    // a folder could not be finished; it then waits in the library for the next import.
    [[nodiscard]] bool finish(Error* error);

    // Of a resumed import; empty when it had not begun.
    [[nodiscard]] QString manifestPath() const;
    // A resumed import that still has its files folder.
    [[nodiscard]] bool ownsFilesFolder() const { return m_ownsFilesFolder; }
    [[nodiscard]] const QStringList& finishedFolders() const { return m_finishedFolders; }
    [[nodiscard]] const std::vector<FailedImportItem>& failedItems() const { return m_failedItems; }

private:
    [[nodiscard]] bool finishStage(const QString& stage, std::optional<LibraryCatalogue> catalogue,
                                   Error* error);
    [[nodiscard]] bool finishInterruptedStage(const QString& stage, Error* error);
    void takeItems(const QString& stage, LibraryCatalogue& catalogue);
    // Of an import that has no files folder any more, items that already are in the stage.
    [[nodiscard]] bool takeItem(const QString& stage, const LibraryCatalogue::Item& item, Error* error);
    [[nodiscard]] bool publish(const QString& stage, const QString& name, Error* error);
    void setAttributes(const QString& path, const QVariantMap& record);
    void fail(const QVariantMap& record, const Error& error);

    QString m_library;
    LibraryNames& m_names;
    ImportStaging m_staging;
    bool m_isResumed = false;
    bool m_ownsFilesFolder = false;
    std::vector<LibraryCatalogue> m_catalogues; // of the stages of an import that began here
    std::optional<ManifestSources> m_sources;   // of a resumed one, whose journal may have been tampered with
    bool m_attributesFailed = false;
    // Why no further item can be taken, such as a full disk.
    std::optional<Error> m_obstacle;
    QStringList m_finishedFolders;
    std::vector<FailedImportItem> m_failedItems;
};

} // namespace platform
