// SPDX-License-Identifier: MIT
#pragma once

#include "tools/FilesFolderLock.h"
#include "tools/ImportDestination.h"
#include "tools/RunLibrary.h"

// The embedded library at a path, else where the setting "QuilleryLibraryFolder" says, else the folder
// "Quillery Library" in the user's documents.
//
// Each library has a files folder of its own in the private temporary directory, so that an interrupted
// import still finds its files when there have been imports into other libraries since.
class LibraryDestination : public ImportDestination {
public:
    explicit LibraryDestination(const QString& directory);

    // Also finishes what an interrupted import left in the library. That it could not is no obstacle.
    [[nodiscard]] Readiness prepare(const QStringList& files, QString* problem) override;
    [[nodiscard]] EarlierImport earlierImport() const override { return m_earlierImport; }
    [[nodiscard]] std::shared_ptr<platform::ScriptingBridge> bridge() override;
    [[nodiscard]] RunDirectories directories() override;
    [[nodiscard]] QStringList finishRun(RunOutcome& outcome) override;

private:
    [[nodiscard]] bool lockTemporaryFolder(QString* problem);
    void finishInterruptedImports();
    [[nodiscard]] std::vector<ImportReport::SkippedNote> itemsNotTaken() const;

    std::shared_ptr<RunLibrary> m_library;
    QString m_temporary;
    // Runs into a library share its files folder, so one process runs at a time.
    FilesFolderLock m_lock;
    EarlierImport m_earlierImport;
    // Of an earlier import that could not be finished, which every run tries and tells again.
    std::vector<platform::FailedImportItem> m_earlierFailures;
};
