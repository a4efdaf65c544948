// SPDX-License-Identifier: MIT
#include "foundation/CloudFolders.h"

#include "platform/files/FileManager.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

QStringList cloudFolders(const QString& userFolder, const QString& homeFolder)
{
    QStringList folders;
    const QString drive = userFolder + QStringLiteral("/Google Drive");
    if (platform::fileExistsAtPath(drive))
        folders += drive;
    const auto information = platform::readFile(homeFolder + QStringLiteral("/.dropbox/info.json"));
    const QJsonObject accounts = QJsonDocument::fromJson(information.value_or(QByteArray())).object();
    for (const QLatin1String account : {QLatin1String("business"), QLatin1String("personal")}) {
        const QString path = accounts.value(account).toObject().value(QLatin1String("path")).toString();
        if (!path.isEmpty())
            folders += path;
    }
    return folders;
}

bool liesInCloudFolder(const QString& folder, const QStringList& cloudFolders)
{
    const QString place = QFileInfo(folder).canonicalFilePath();
    return !place.isEmpty() && std::any_of(cloudFolders.begin(), cloudFolders.end(), [&](const QString& cloud) {
        const QString root = QFileInfo(cloud).canonicalFilePath();
        return !root.isEmpty() && (place == root || place.startsWith(root + u'/'));
    });
}
