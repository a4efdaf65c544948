// SPDX-License-Identifier: MIT
#include "platform/core/StandardDirectories.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// lstat, so that a link planted under the name is not followed.
bool isPrivateFolder(const QString& path)
{
    struct stat status = {};
    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        return false;
    return S_ISDIR(status.st_mode) && status.st_uid == geteuid()
           && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

bool makePrivateFolder(const QString& path)
{
    if (!QDir().mkpath(QFileInfo(path).path()))
        return false;
    const QByteArray name = QFile::encodeName(path);
    if (mkdir(name.constData(), S_IRWXU) == 0)
        return true;
    return isPrivateFolder(path) && chmod(name.constData(), S_IRWXU) == 0;
}

} // namespace

QString StandardDirectories::library() { return QDir::homePath() + QStringLiteral("/Library"); }

QString StandardDirectories::applicationSupport()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

QString StandardDirectories::preferences()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QString StandardDirectories::documents()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString StandardDirectories::caches()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
}

QString StandardDirectories::temporary()
{
    const QString chosen = QDir::cleanPath(qEnvironmentVariable("TMPDIR"));
    if (QDir::isAbsolutePath(chosen) && isPrivateFolder(chosen))
        return chosen;
    const QString own = caches() + QStringLiteral("/com.brightmoor.Vupuge/Temporary");
    return makePrivateFolder(own) ? own : QString();
}

} // namespace platform
