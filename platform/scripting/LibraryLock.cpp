// SPDX-License-Identifier: MIT
#include "platform/scripting/LibraryLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace platform {

LibraryLock::LibraryLock(const QString& directory)
    : m_directory(system::open(QFile::encodeName(directory), O_RDONLY | O_DIRECTORY))
{
    while (::flock(m_directory.number(), LOCK_EX) != 0 && errno == EINTR) {
    }
}

} // namespace platform
