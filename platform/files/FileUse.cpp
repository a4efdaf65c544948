// SPDX-License-Identifier: MIT
#include "platform/files/FileUse.h"

#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace platform {

namespace {

bool isLocked(int descriptor)
{
    struct flock lock = {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    if (::fcntl(descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK)
        return true;
    if (::flock(descriptor, LOCK_SH | LOCK_NB) == 0) {
        ::flock(descriptor, LOCK_UN);
        return false;
    }
    return errno == EWOULDBLOCK;
}

// The kernel grants a read lease only while nobody has the file open for writing. Whoever opens it
// before the lease is given back makes the kernel send a signal, one that nobody minds instead of
// the usual SIGIO, which would end the program.
bool isOpenForWriting(int descriptor)
{
    if (::fcntl(descriptor, F_SETSIG, SIGURG) != 0)
        return false;
    if (::fcntl(descriptor, F_SETLEASE, F_RDLCK) == 0) {
        ::fcntl(descriptor, F_SETLEASE, F_UNLCK);
        return false;
    }
    return errno == EAGAIN;
}

} // namespace

std::optional<bool> isFileInUse(const QString& path)
{
    const auto native = system::nativePath(path);
    struct stat status = {};
    if (!native || ::stat(native->constData(), &status) != 0)
        return std::nullopt;
    if (!S_ISREG(status.st_mode))
        return false;
    const system::Descriptor file = system::open(*native, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    if (!file.isOpen())
        return std::nullopt;
    return isLocked(file.number()) || isOpenForWriting(file.number());
}

} // namespace platform
