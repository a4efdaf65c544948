// SPDX-License-Identifier: MIT
#include "foundation/FolderSize.h"

#include "platform/files/ItemKind.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

bool isInvisible(int folder, const char* name)
{
    // The attribute calls know no "relative to a folder"; the kernel's name for the open folder does.
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(folder) + '/' + name;
    return (platform::finderFlags(path) & platform::finderFlagInvisible) != 0;
}

} // namespace

std::optional<quint64> FolderSize::sizeOf(const QByteArray& path)
{
    *this = FolderSize();
    const int root = ::open(path.constData(), folderFlags);
    if (root < 0 || !push(root)) {
        m_failure = errno;
        return std::nullopt;
    }
    while (!m_levels.empty()) {
        m_failure = 0;
        const auto folder = folderToVisit(m_levels.back());
        if (folder)
            enter(*folder);
        else if (m_failure != 0 && m_levels.size() == 1)
            return std::nullopt;
        else
            leave(m_failure == 0);
    }
    return m_total;
}

bool FolderSize::push(int descriptor)
{
    struct stat status = {};
    const bool isKnown = ::fstat(descriptor, &status) == 0;
    const Identity identity{status.st_dev, status.st_ino};
    DIR* const stream = isKnown && !m_entered.contains(identity) ? ::fdopendir(descriptor) : nullptr;
    if (!stream) {
        const int failure = errno;
        ::close(descriptor);
        errno = failure;
        return false;
    }
    m_entered.insert(identity);
    m_levels.push_back(Level{Stream(stream), identity, {}, 0});
    return true;
}

std::optional<QByteArray> FolderSize::nextFolder(Level& level)
{
    const int descriptor = ::dirfd(level.stream.get());
    for (;;) {
        errno = 0;
        const struct dirent* const entry = ::readdir(level.stream.get());
        if (!entry) {
            m_failure = errno;
            return std::nullopt;
        }
        if (entry->d_name[0] == '.' || isInvisible(descriptor, entry->d_name))
            continue;
        if (entry->d_type == DT_DIR)
            return QByteArray(entry->d_name);
        struct stat status = {};
        if (::fstatat(descriptor, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
            m_failure = errno;
            m_failedName = entry->d_name;
            return std::nullopt;
        }
        if (S_ISDIR(status.st_mode))
            return QByteArray(entry->d_name);
        level.sum += quint64(status.st_size);
    }
}

std::optional<QByteArray> FolderSize::folderToVisit(Level& level)
{
    if (m_levels.size() <= maximumOpenFolders)
        return nextFolder(level);
    if (level.foldersToVisit.empty())
        return std::nullopt;
    QByteArray name = std::move(level.foldersToVisit.back());
    level.foldersToVisit.pop_back();
    return name;
}

void FolderSize::enter(const QByteArray& name)
{
    const int descriptor = ::openat(::dirfd(m_levels.back().stream.get()), name.constData(), folderFlags);
    if (descriptor < 0 || !push(descriptor) || m_levels.size() <= maximumOpenFolders)
        return;
    Level& level = m_levels.back();
    while (auto folder = nextFolder(level))
        level.foldersToVisit.push_back(std::move(*folder));
    if (m_failure != 0) {
        m_entered.erase(level.identity);
        m_levels.pop_back();
        return;
    }
    if (m_levels.size() - 1 > maximumOpenFolders)
        m_levels[m_levels.size() - 2].stream.reset();
}

bool FolderSize::reopenFromBelow(Level& level, int descriptorBelow)
{
    const int descriptor = ::openat(descriptorBelow, "..", folderFlags);
    struct stat status = {};
    if (descriptor < 0)
        return false;
    if (::fstat(descriptor, &status) != 0 || Identity(status.st_dev, status.st_ino) != level.identity) {
        ::close(descriptor);
        return false;
    }
    level.stream.reset(::fdopendir(descriptor));
    return level.stream != nullptr;
}

void FolderSize::leave(bool countsSum)
{
    const Level left = std::move(m_levels.back());
    m_levels.pop_back();
    m_entered.erase(left.identity);
    quint64& sum = m_levels.empty() ? m_total : m_levels.back().sum;
    sum += countsSum ? left.sum : 0;
    if (m_levels.empty() || m_levels.back().stream || reopenFromBelow(m_levels.back(), ::dirfd(left.stream.get())))
        return;
    // Somebody has moved the folder meanwhile: those that cannot be reached any more count for nothing.
    while (!m_levels.back().stream) {
        m_entered.erase(m_levels.back().identity);
        m_levels.pop_back();
    }
}
