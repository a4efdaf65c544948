// SPDX-License-Identifier: MIT
#include "exports/FileIdentity.h"

#include <QFile>

#include <sys/stat.h>

namespace {

constexpr qint64 nanosecondsInSecond = 1'000'000'000;

qint64 nanoseconds(const timespec& time)
{
    return static_cast<qint64>(time.tv_sec) * nanosecondsInSecond + time.tv_nsec;
}

FileIdentity identityOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

} // namespace

std::optional<FileIdentity> FileIdentity::ofFile(const QString& path)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return identityOf(status);
}

std::optional<FileIdentity> FileIdentity::ofDescriptor(int descriptor)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return std::nullopt;
    return identityOf(status);
}
