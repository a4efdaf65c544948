// SPDX-License-Identifier: MIT
#include "platform/files/SystemCalls.h"

#include "platform/files/FileManager.h"

#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::system {

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    if (this != &other) {
        static_cast<void>(close());
        m_number = other.release();
    }
    return *this;
}

int Descriptor::close()
{
    const int number = release();
    // After EINTR the descriptor is gone all the same, and another thread may already have its
    // number.
    if (number < 0 || ::close(number) == 0 || errno == EINTR)
        return 0;
    return errno;
}

std::optional<QByteArray> nativePath(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar(0)))
        return std::nullopt;
    return QFile::encodeName(path);
}

QString pathFromNative(const QByteArray& path)
{
    return QFile::decodeName(path);
}

QByteArray privateSibling(const QByteArray& path)
{
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), 16);
    return path.left(path.lastIndexOf('/') + 1) + ".unfinished-" + number.rightJustified(16, '0');
}

Descriptor open(const QByteArray& path, int flags, unsigned mode)
{
    int number = -1;
    do
        number = ::open(path.constData(), flags | O_CLOEXEC, mode);
    while (number < 0 && errno == EINTR);
    return Descriptor(number);
}

int writeAll(int descriptor, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t written =
            ::write(descriptor, bytes.data(), static_cast<size_t>(bytes.size()));
        if (written < 0 && errno != EINTR)
            return errno;
        if (written > 0)
            bytes = bytes.sliced(written);
    }
    return 0;
}

int readAll(int descriptor, qint64 sizeHint, QByteArray& bytes)
try {
    constexpr qint64 leastRoom = 4096;
    qint64 length = 0;
    // One byte more than expected, so that the end is met without growing.
    bytes.resize(std::max(sizeHint + 1, leastRoom));
    for (;;) {
        if (length == bytes.size())
            bytes.resize(length * 2);
        const ssize_t got =
            ::read(descriptor, bytes.data() + length, static_cast<size_t>(bytes.size() - length));
        if (got < 0 && errno != EINTR)
            return errno;
        if (got == 0)
            break;
        length += std::max<ssize_t>(got, 0);
    }
    bytes.truncate(length);
    return 0;
} catch (const std::bad_alloc&) {
    return ENOMEM;
}

namespace {

int copyThroughMemory(int from, int to)
{
    std::array<char, 256 * 1024> buffer;
    for (;;) {
        const ssize_t got = ::read(from, buffer.data(), buffer.size());
        if (got == 0)
            return 0;
        if (got < 0 && errno != EINTR)
            return errno;
        if (got > 0) {
            if (const int failure = writeAll(to, QByteArrayView(buffer.data(), got)))
                return failure;
        }
    }
}

bool isUnsupported(int failure)
{
    return failure == ENOSYS || failure == EINVAL || failure == EXDEV || failure == EOPNOTSUPP ||
           failure == EBADF || failure == ETXTBSY || failure == EPERM;
}

} // namespace

int copyAll(int from, int to)
{
    constexpr size_t pieceLength = size_t(1) << 30;
    for (bool isFirst = true;; isFirst = false) {
        const ssize_t copied = ::copy_file_range(from, nullptr, to, nullptr, pieceLength, 0);
        // Some file systems without true lengths answer 0 at once; reading tells the true end.
        if (copied == 0)
            return isFirst ? copyThroughMemory(from, to) : 0;
        if (copied < 0 && errno == EINTR)
            continue;
        if (copied < 0)
            return isUnsupported(errno) ? copyThroughMemory(from, to) : errno;
    }
}

namespace {

int finishInPlace(const QByteArray& path, Descriptor& file, int failure)
{
    const int failureOfClose = file.close();
    if (failure == 0)
        failure = failureOfClose;
    struct stat status = {};
    if (failure != 0 && ::lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode))
        ::unlink(path.constData());
    return failure;
}

constexpr int inPlaceFlags = O_WRONLY | O_CREAT | O_TRUNC | O_NOCTTY;

} // namespace

int writeInPlace(const QByteArray& path, QByteArrayView bytes)
{
    Descriptor file = open(path, inPlaceFlags, newFileMode);
    return file.isOpen() ? finishInPlace(path, file, writeAll(file.number(), bytes)) : errno;
}

int copyInPlace(const QByteArray& from, const QByteArray& to, bool& isAboutSource)
{
    const Descriptor source = open(from, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    isAboutSource = !source.isOpen();
    if (isAboutSource)
        return errno;
    Descriptor target = open(to, inPlaceFlags, newFileMode);
    return target.isOpen() ? finishInPlace(to, target, copyAll(source.number(), target.number()))
                           : errno;
}

int renameWithoutReplacing(const QByteArray& from, const QByteArray& to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    struct stat status = {};
    if (::lstat(to.constData(), &status) == 0)
        return EEXIST;
    return ::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

int replaceItem(const QByteArray& finished, const QByteArray& target)
{
    if (::rename(finished.constData(), target.constData()) == 0)
        return 0;
    if (errno != EISDIR && errno != ENOTDIR && errno != ENOTEMPTY && errno != EEXIST)
        return errno;

    QByteArray old = finished;
    if (::renameat2(AT_FDCWD, finished.constData(), AT_FDCWD, target.constData(),
                    RENAME_EXCHANGE) != 0) {
        if (errno != EINVAL && errno != ENOSYS)
            return errno;
        old = privateSibling(target);
        if (::rename(target.constData(), old.constData()) != 0)
            return errno;
        if (::rename(finished.constData(), target.constData()) != 0) {
            const int failure = errno;
            // When the way back fails as well, the old item is whole under its private name.
            static_cast<void>(::rename(old.constData(), target.constData()));
            return failure;
        }
    }
    // The new item is in place, so what is left of the old one fails nothing.
    static_cast<void>(removeItem(pathFromNative(old)));
    return 0;
}

} // namespace platform::system
