// SPDX-License-Identifier: MIT
#include "platform/files/TrashFolders.h"

#include "platform/core/StandardDirectories.h"
#include "platform/files/SystemCalls.h"

#include <array>
#include <cstdio>
#include <memory>

#include <mntent.h>
#include <unistd.h>

namespace platform {

namespace {

// Read from the kernel's list: asking the volumes themselves would wait for a server that is gone.
QStringList mountPoints()
{
    QStringList points;
    const std::unique_ptr<FILE, decltype(&::endmntent)> mounts(
        ::setmntent("/proc/self/mounts", "re"), &::endmntent);
    if (!mounts)
        return points;
    struct mntent entry = {};
    std::array<char, 16384> strings = {};
    while (::getmntent_r(mounts.get(), &entry, strings.data(), int(strings.size())))
        points += system::pathFromNative(QByteArray(entry.mnt_dir));
    points.removeDuplicates();
    return points;
}

} // namespace

QStringList trashFolders()
{
    QStringList folders{StandardDirectories::applicationSupport() + QStringLiteral("/Trash")};
    const QString user = QString::number(::getuid());
    for (const QString& point : mountPoints()) {
        const QString volume = point.endsWith(u'/') ? point : point + u'/';
        folders += volume + QStringLiteral(".Trash/") + user;
        folders += volume + QStringLiteral(".Trash-") + user;
    }
    return folders;
}

} // namespace platform
