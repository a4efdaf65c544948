// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

#include <optional>
#include <vector>

// One file of a folder of exports.
struct ExportFile {
    QString path;
    // What the notebook is called: the file's name without its extension, after the folders that it
    // lies in, each followed by "/". No two become one when they are made file names.
    QString name;
    // Why there is no telling what it holds: a folder that cannot be looked into stands in the list
    // itself.
    std::optional<platform::Error> problem;
};

// The ENEX files in a folder and in the folders within it, by name. Hidden ones are not listed:
// they are the file system's own, such as those that copying from a Mac leaves.
//
// Symbolic links are followed, but no folder is looked into twice and none that holds the exports
// themselves; a link to a file that is listed anyway is not listed. A link that leads nowhere is.
//
// Folders beside an import's manifest are what that import has laid out, and are not looked into.
[[nodiscard]] std::vector<ExportFile> exportFilesIn(const QString& directory);
