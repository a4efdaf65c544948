// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariantMap>

#include <memory>

// The vocabulary of the manifest through which Quillery is told what to import: a property list
// "Evernote.qllibxml" of folder records and item records.
namespace platform::manifest {

// A record under construction. Shared, because the run that made a folder record goes on filling it.
using Record = std::shared_ptr<QVariantMap>;

[[nodiscard]] inline Record makeRecord() { return std::make_shared<QVariantMap>(); }

inline const QString fileName = QStringLiteral("Evernote.qllibxml");

// Top level.
inline const QString exporterVersionKey = QStringLiteral("ExporterVersion");             // integer
inline const QString removeFileOnCompletionKey = QStringLiteral("RemoveFileOnCompletion"); // path
inline const QString entitiesKey = QStringLiteral("Entities");
// Version 3.5.3 of the program that writes the manifest.
inline constexpr int exporterVersion = 353;

// "Entities": records by identifier.
inline const QString folderEntity = QStringLiteral("Folder");
inline const QString itemEntity = QStringLiteral("Item");

// Every record.
inline const QString entityNameKey = QStringLiteral("com.brightmoor.Quillery.EntityName");
inline const QString nameKey = QStringLiteral("name");
inline const QString identifierKey = QStringLiteral("identifier");
inline const QString commentsKey = QStringLiteral("comments");

// Folder records.
inline const QString groupTypeKey = QStringLiteral("groupType"); // integer
inline const QString parentKey = QStringLiteral("parent");
inline const QString itemsKey = QStringLiteral("items"); // identifiers
inline const QString rootFolder = QStringLiteral("RootFolder");
// The kind of folder whose files lie straight in it.
inline constexpr int importedFolderGroupType = 70;

// Item records.
inline const QString itemTypeKey = QStringLiteral("itemType"); // integer
inline const QString filenameKey = QStringLiteral("filename");
inline const QString absoluteFilenameKey = QStringLiteral("absoluteFilename");
inline const QString extensionHiddenKey = QStringLiteral("extensionHidden"); // boolean
inline const QString folderKey = QStringLiteral("folder");                   // identifier
inline const QString dateCreatedKey = QStringLiteral("dateCreated");         // date
inline const QString dateModifiedKey = QStringLiteral("dateModified");       // date
inline const QString tagsStringKey = QStringLiteral("tagsString");           // joined with ","

} // namespace platform::manifest
