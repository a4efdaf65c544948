// SPDX-License-Identifier: MIT
#include "platform/files/FileWrapper.h"

#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

struct DueFolder {
    QByteArray path;
    FileWrapper::Pointer wrapper;
};

// The names of a folder's entries, sorted, so that a tree reads alike on every file system.
int namesInFolder(const QByteArray& path, std::vector<QByteArray>& names)
{
    system::Descriptor folder = system::open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    DIR* const stream = folder.isOpen() ? ::fdopendir(folder.number()) : nullptr;
    if (!stream)
        return errno;
    static_cast<void>(folder.release()); // the stream closes it
    errno = 0;
    while (const dirent* const entry = ::readdir(stream)) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    }
    const int failure = errno;
    ::closedir(stream);
    std::sort(names.begin(), names.end());
    return failure;
}

int readLinkText(const QByteArray& path, QByteArray& text)
{
    text.resize(PATH_MAX);
    const ssize_t length = ::readlink(path.constData(), text.data(), PATH_MAX);
    text.truncate(std::max<ssize_t>(length, 0));
    return length < 0 ? errno : 0;
}

int readPlainFile(const QByteArray& path, QByteArray& bytes)
{
    // A link that took the file's place meanwhile is not followed, and a pipe is not waited for.
    const system::Descriptor file = system::open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
        return errno;
    return S_ISREG(status.st_mode) ? system::readAll(file.number(), status.st_size, bytes)
                                   : ENOTSUP;
}

// The wrapper of one entry; a folder's is still empty.
int readEntry(const QByteArray& path, const QString& name, FileWrapper::Pointer& wrapper)
{
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode)) {
        wrapper = FileWrapper::directory(name);
        return 0;
    }
    QByteArray bytes;
    const int failure =
        S_ISLNK(status.st_mode) ? readLinkText(path, bytes) : readPlainFile(path, bytes);
    wrapper = FileWrapper::regularFile(bytes, name);
    return failure;
}

} // namespace

FileWrapper::Pointer FileWrapper::read(const QString& path, Error* error)
{
    const auto fail = [&](const QByteArray& failedPath, int failure) {
        setError(error, fileError(FileAccess::Read, system::pathFromNative(failedPath), failure));
        return nullptr;
    };
    const auto native = system::nativePath(path);
    if (!native) {
        setError(error, fileError(FileAccess::Read, path, EINVAL));
        return nullptr;
    }
    Pointer root;
    const QString name = QFileInfo(QDir::cleanPath(path)).fileName();
    if (const int failure = readEntry(*native, name, root))
        return fail(*native, failure);

    std::vector<DueFolder> due;
    if (root->isDirectory())
        due.push_back({*native, root});
    while (!due.empty()) {
        const DueFolder folder = std::move(due.back());
        due.pop_back();
        std::vector<QByteArray> names;
        if (const int failure = namesInFolder(folder.path, names))
            return fail(folder.path, failure);
        for (const QByteArray& entry : names) {
            const QByteArray entryPath = folder.path + '/' + entry;
            const QString key = system::pathFromNative(entry);
            Pointer child;
            if (const int failure = readEntry(entryPath, key, child))
                return fail(entryPath, failure);
            folder.wrapper->addChild(key, child);
            if (child->isDirectory())
                due.push_back({entryPath, child});
        }
    }
    return root;
}

} // namespace platform
