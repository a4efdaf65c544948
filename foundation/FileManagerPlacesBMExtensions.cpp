// SPDX-License-Identifier: MIT
#include "foundation/FileManagerPlacesBMExtensions.h"

#include "foundation/CloudFolders.h"
#include "platform/core/StandardDirectories.h"
#include "platform/core/StringFormat.h"
#include "platform/core/SystemLog.h"
#include "platform/files/FileManager.h"
#include "platform/files/ItemKind.h"
#include "platform/files/SystemCalls.h"
#include "platform/files/TrashFolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cerrno>

#include <pwd.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

QString loginName()
{
    struct passwd entry = {};
    struct passwd* found = nullptr;
    std::array<char, 16384> strings = {};
    if (::getpwuid_r(::geteuid(), &entry, strings.data(), strings.size(), &found) == 0 && found)
        return QString::fromLocal8Bit(entry.pw_name);
    return qEnvironmentVariable("USER");
}

QStringList usersCloudFolders() { return cloudFolders(QStringLiteral("/Users/") + loginName(), QDir::homePath()); }

} // namespace

bool isURLInTrash(const QUrl& url)
{
    const QString path = url.toLocalFile();
    const QStringList folders = platform::trashFolders();
    return std::any_of(folders.begin(), folders.end(),
                       [&](const QString& folder) { return path.startsWith(folder); });
}

bool isUbiquityEnabledForDesktopAndDocumentsFolders()
{
    const QStringList folders = usersCloudFolders();
    return liesInCloudFolder(platform::StandardDirectories::documents(), folders)
           || liesInCloudFolder(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation), folders);
}

QList<QUrl> prohibitedFolderURLsForCloudLibraries()
{
    QList<QUrl> urls;
    for (const QString& folder : usersCloudFolders())
        urls += QUrl::fromLocalFile(folder);
    return urls;
}

std::optional<QString> temporaryDirectoryForApplication()
{
    const QString folder = platform::StandardDirectories::temporary();
    const QString path = folder + u'/' + QCoreApplication::applicationName();
    const auto kind = platform::itemKind(path);
    if (kind && kind->isDirectory && !folder.isEmpty())
        return path;
    if (kind) {
        platform::systemLog(platform::stringWithFormat(
            QStringLiteral("Failed to create directory \"%@\" because a file already exists with the same name."),
            {path}));
        return std::nullopt;
    }
    // Without a private temporary folder the path would be one in the root folder.
    platform::Error error = platform::fileError(platform::FileAccess::Write, path, ENOENT);
    if (!folder.isEmpty() && platform::createDirectory(path, platform::IntermediateFolders::Create, &error))
        return path;
    platform::systemLog(platform::stringWithFormat(QStringLiteral("Failed to create directory \"%@\": %@"),
                                                   {path, error.description()}));
    return std::nullopt;
}

std::optional<quint64> getFreeDiskspace(platform::Error* error)
{
    const QString path = platform::StandardDirectories::documents();
    const auto native = platform::system::nativePath(path);
    struct statvfs status = {};
    if (!native || ::statvfs(native->constData(), &status) != 0) {
        platform::setError(error,
                           platform::fileError(platform::FileAccess::Read, path, native ? errno : EINVAL));
        return std::nullopt;
    }
    return quint64(status.f_bavail) * quint64(status.f_frsize);
}
