// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>
#include <QVariantMap>

#include <optional>
#include <vector>

namespace platform {

// What a library folder keeps beside its files: everything that the manifest said of it and of its items.
//
// One binary property list in each library folder, hidden, so that its size follows the folder and not the
// library, and that a folder can be moved or copied as a whole:
//
//   FormatVersion  1
//   Import         what the manifest says beside its records, such as ExporterVersion
//   Folder         the folder's record
//   Items          array of dictionaries: FileName, its name in this folder; SourceFile, where it was in the
//                  files folder; Record, the item's record
class LibraryCatalogue {
public:
    static inline const QString fileName = QStringLiteral(".quillery-folder.plist");

    struct Item {
        QString fileName;
        QString sourceFile; // relative to the files folder
        QVariantMap record;
    };
    QVariantMap importRecord;
    QVariantMap folderRecord;
    std::vector<Item> items;

    [[nodiscard]] static std::optional<LibraryCatalogue> read(const QString& folder, Error* error = nullptr);
    // Writes it whole or leaves what was there.
    [[nodiscard]] bool write(const QString& folder, Error* error = nullptr) const;
};

} // namespace platform
