// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

// The cloud services' folders of a user whose home is homeFolder and whose folder among the computer's users
// is userFolder.
[[nodiscard]] QStringList cloudFolders(const QString& userFolder, const QString& homeFolder);

// Whether the folder is one of the cloud folders or lies in one, links resolved. False when it is not there.
[[nodiscard]] bool liesInCloudFolder(const QString& folder, const QStringList& cloudFolders);
