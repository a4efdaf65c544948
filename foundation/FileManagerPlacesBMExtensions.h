// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

// Places that mean something to the user or the system.

// The URL's path begins, as plain text, with that of any of the user's trash folders on any mounted volume.
// So does that of a sibling whose name begins like the trash folder's.
[[nodiscard]] bool isURLInTrash(const QUrl& url);

// Whether a cloud service keeps the user's Documents folder or else the Desktop folder: they lie, links
// resolved, in one of the folders below.
[[nodiscard]] bool isUbiquityEnabledForDesktopAndDocumentsFolders();

// The cloud-synchronised folders that must not hold a library, in this order: /Users/<login name>/Google
// Drive when something is there; then the "path" of "business" and of "personal" in .dropbox/info.json of the
// home folder, those that are there and not empty. A file that is no JSON has none.
[[nodiscard]] QList<QUrl> prohibitedFolderURLsForCloudLibraries();

// The folder of the application's name in the user's private temporary folder, made when it is not there. None,
// with a line in the system's log, when it cannot be made or when something else, a link even, has its name.
[[nodiscard]] std::optional<QString> temporaryDirectoryForApplication();

// Bytes that the user may still write to the file system of the Documents folder. None, with the error, when
// there is no such folder or the file system does not tell.
[[nodiscard]] std::optional<quint64> getFreeDiskspace(platform::Error* error = nullptr);
