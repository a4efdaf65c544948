// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/SystemCalls.h"

#include <QUtf8StringView>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

int readRegularFile(const QByteArray& path, QByteArray& bytes)
{
    // Without O_NONBLOCK a pipe would wait for its writer before it can be refused.
    const system::Descriptor file = system::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    if (!S_ISREG(status.st_mode))
        return ENOTSUP;
    return system::readAll(file.number(), status.st_size, bytes);
}

int writeBesideAndRename(const QByteArray& path, QByteArrayView bytes)
{
    const QByteArray temporary = system::privateSibling(path);
    system::Descriptor file
        = system::open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, system::newFileMode);
    if (!file.isOpen())
        return errno;
    struct stat old = {};
    if (::lstat(path.constData(), &old) == 0 && S_ISREG(old.st_mode))
        static_cast<void>(::fchmod(file.number(), old.st_mode & 07777));
    int failure = system::writeAll(file.number(), bytes);
    const int failureOfClose = file.close();
    if (failure == 0)
        failure = failureOfClose;
    if (failure == 0 && ::rename(temporary.constData(), path.constData()) != 0)
        failure = errno;
    if (failure != 0)
        ::unlink(temporary.constData());
    return failure;
}

} // namespace

std::optional<QByteArray> readFile(const QString& path, Error* error)
{
    const auto native = system::nativePath(path);
    QByteArray bytes;
    if (const int failure = native ? readRegularFile(*native, bytes) : EINVAL) {
        setError(error, fileError(FileAccess::Read, path, failure));
        return std::nullopt;
    }
    return bytes;
}

std::optional<QString> readTextFile(const QString& path, Error* error)
{
    const auto bytes = readFile(path, error);
    if (!bytes)
        return std::nullopt;
    if (!QUtf8StringView(*bytes).isValidUtf8()) {
        setError(error, Error(cocoaErrorDomain, FileReadInapplicableStringEncodingError,
                              localizedString("\u201c%1\u201d is not UTF-8 text.").arg(path)));
        return std::nullopt;
    }
    return QString::fromUtf8(*bytes);
}

bool writeFile(const QString& path, QByteArrayView bytes, WriteOption option, Error* error)
{
    const auto native = system::nativePath(path);
    int failure = EINVAL;
    if (native)
        failure = option == WriteOption::Atomic ? writeBesideAndRename(*native, bytes)
                                                : system::writeInPlace(*native, bytes);
    if (failure == 0)
        return true;
    setError(error, fileError(FileAccess::Write, path, failure));
    return false;
}

} // namespace platform
