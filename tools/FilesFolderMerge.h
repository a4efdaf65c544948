// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/FreeFileNames.h"
#include "import/ImportManifest.h"

#include <QString>

// One files folder of what several runs laid out, each in its own. Their folders are moved together
// as they come, under free names; the manifest of all is written at the end, once, for it grows
// with each. Of the notes only the packed records are in memory, as in the runs themselves.
class FilesFolderMerge {
public:
    // directory: where the files folder is put together, made when it is not there. filesPath:
    // where it will be.
    FilesFolderMerge(QString directory, const QString& filesPath);

    // from: the files folder of a run, of which the emptied shell is left. False with an error;
    // what was moved until then is named by no record.
    [[nodiscard]] bool add(const ImportManifest& manifest, const QString& from,
                           platform::Error* error = nullptr);

    [[nodiscard]] bool isEmpty() const { return m_manifest.folders().isEmpty(); }
    [[nodiscard]] const QString& directory() const { return m_directory; }
    [[nodiscard]] bool writeManifest(platform::Error* error = nullptr) const;

private:
    QString m_directory;
    QString m_filesPath;
    ImportManifest m_manifest;
    FreeFileNames m_freeNames;
};
