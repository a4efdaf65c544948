// SPDX-License-Identifier: MIT
#include "tools/InputFiles.h"

#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

int obstacleToReading(const QString& path)
{
    // Without O_NONBLOCK a pipe would wait for its writer.
    const platform::system::Descriptor file
        = platform::system::open(QFile::encodeName(path), O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status = {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    return S_ISREG(status.st_mode) ? 0 : ENOTSUP;
}

} // namespace

bool isReadableFile(const QString& path, platform::Error* error)
{
    const int obstacle = obstacleToReading(path);
    if (obstacle != 0)
        platform::setError(error, platform::fileError(platform::FileAccess::Read, path, obstacle));
    return obstacle == 0;
}
