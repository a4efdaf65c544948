// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// Empties a folder however deep it is, with one open folder at a time and never through a link.
// Paths would end at PATH_MAX, and an open folder a level at the limit of open files.
class FolderRemoval {
public:
    // root: without a slash at its end.
    explicit FolderRemoval(QByteArray root)
        : m_root(std::move(root))
    {
    }

    [[nodiscard]] int run()
    {
        int failure = enter(AT_FDCWD, m_root);
        while (failure == 0 && !m_levels.empty()) {
            if (m_levels.back().folders.empty()) {
                failure = leave();
            } else {
                const QByteArray next = std::move(m_levels.back().folders.back());
                m_levels.back().folders.pop_back();
                failure = enter(m_folder.number(), next);
            }
        }
        return failure;
    }

    // What could not be removed, after a failure.
    [[nodiscard]] QByteArray failedPath() const
    {
        QByteArray path;
        for (const Level& level : m_levels)
            path += level.name + '/';
        return path + m_current;
    }

private:
    struct Level {
        QByteArray name;
        dev_t device;
        ino_t node;
        std::vector<QByteArray> folders;
    };

    int enter(int parent, const QByteArray& name)
    {
        m_current = name;
        system::Descriptor folder(
            ::openat(parent, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        struct stat status = {};
        if (!folder.isOpen() || ::fstat(folder.number(), &status) != 0)
            return errno;
        m_folder = std::move(folder);
        m_levels.push_back({name, status.st_dev, status.st_ino, {}});
        m_current.clear();
        return removeFiles(m_levels.back().folders);
    }

    int removeFiles(std::vector<QByteArray>& folders)
    {
        // The stream closes the descriptor that it is given, and ours is still needed.
        DIR* const stream = ::fdopendir(::fcntl(m_folder.number(), F_DUPFD_CLOEXEC, 0));
        if (!stream)
            return errno;
        std::vector<QByteArray> files;
        while (const dirent* const entry = ::readdir(stream)) {
            if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
                (entry->d_type == DT_DIR ? folders : files).emplace_back(entry->d_name);
        }
        ::closedir(stream);
        for (const QByteArray& name : files) {
            if (::unlinkat(m_folder.number(), name.constData(), 0) == 0 || errno == ENOENT)
                continue;
            if (errno != EISDIR) { // the file system did not tell what kind of entry it is
                m_current = name;
                return errno;
            }
            folders.push_back(name);
        }
        return 0;
    }

    int leave()
    {
        int parent = AT_FDCWD;
        system::Descriptor above;
        if (m_levels.size() > 1) {
            const Level& expected = m_levels[m_levels.size() - 2];
            above = system::Descriptor(
                ::openat(m_folder.number(), "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
            struct stat status = {};
            if (!above.isOpen() || ::fstat(above.number(), &status) != 0)
                return errno;
            // Somebody moved the folder away meanwhile: its new parent is none of ours.
            if (status.st_dev != expected.device || status.st_ino != expected.node)
                return ESTALE;
            parent = above.number();
        }
        if (::unlinkat(parent, m_levels.back().name.constData(), AT_REMOVEDIR) != 0 &&
            errno != ENOENT)
            return errno;
        m_levels.pop_back();
        m_folder = std::move(above);
        return 0;
    }

    QByteArray m_root;
    QByteArray m_current; // the entry at work, when it is not the last level itself
    system::Descriptor m_folder;
    std::vector<Level> m_levels;
};

QByteArray withoutTrailingSlashes(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

} // namespace

bool removeItem(const QString& path, Error* error)
{
    const auto native = system::nativePath(path);
    if (!native) {
        setError(error, fileError(FileAccess::Write, path, EINVAL));
        return false;
    }
    const QByteArray root = withoutTrailingSlashes(*native);
    if (::unlink(root.constData()) == 0)
        return true;
    if (errno != EISDIR) {
        setError(error, fileError(FileAccess::Write, path, errno));
        return false;
    }
    FolderRemoval removal(root);
    const int failure = removal.run();
    if (failure == 0)
        return true;
    QByteArray failed = withoutTrailingSlashes(removal.failedPath());
    setError(error, fileError(FileAccess::Write, system::pathFromNative(failed), failure));
    return false;
}

} // namespace platform
