// SPDX-License-Identifier: MIT
#include "platform/files/TreeCopy.h"

#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace platform::system {

namespace {

struct Step {
    QByteArray from;
    QByteArray to;
    bool isFolderDone = false; // its children are copied; its mode and dates are still due
};

// Attributes that the target's file system does not keep are left behind.
void copyAttributes(int from, int to)
{
    const ssize_t length = ::flistxattr(from, nullptr, 0);
    if (length <= 0)
        return;
    QByteArray names(length, Qt::Uninitialized);
    names.truncate(
        std::max<ssize_t>(::flistxattr(from, names.data(), static_cast<size_t>(length)), 0));
    for (const QByteArray& name : names.split('\0')) {
        QByteArray value(XATTR_SIZE_MAX, Qt::Uninitialized);
        const ssize_t size =
            name.isEmpty() ? -1 : ::fgetxattr(from, name.constData(), value.data(), XATTR_SIZE_MAX);
        if (size >= 0)
            static_cast<void>(
                ::fsetxattr(to, name.constData(), value.constData(), static_cast<size_t>(size), 0));
    }
}

int copyModeAndDates(int to, const struct stat& status)
{
    const std::array<timespec, 2> times = {status.st_atim, status.st_mtim};
    if (::fchmod(to, status.st_mode & 0777) != 0)
        return errno;
    return ::futimens(to, times.data()) == 0 ? 0 : errno;
}

int copyFile(const Step& step)
{
    const Descriptor from = open(step.from, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    struct stat status = {};
    if (!from.isOpen() || ::fstat(from.number(), &status) != 0)
        return errno;
    Descriptor to = open(step.to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    if (!to.isOpen())
        return errno;
    if (const int failure = copyAll(from.number(), to.number()))
        return failure;
    copyAttributes(from.number(), to.number());
    if (const int failure = copyModeAndDates(to.number(), status))
        return failure;
    return to.close();
}

int copyLink(const Step& step)
{
    QByteArray text(PATH_MAX, Qt::Uninitialized);
    const ssize_t length = ::readlink(step.from.constData(), text.data(), PATH_MAX);
    if (length < 0)
        return errno;
    text.truncate(length);
    return ::symlink(text.constData(), step.to.constData()) == 0 ? 0 : errno;
}

int startFolder(const Step& step, std::vector<Step>& steps)
{
    if (::mkdir(step.to.constData(), 0700) != 0)
        return errno;
    DIR* const stream = ::opendir(step.from.constData());
    if (!stream)
        return errno;
    steps.push_back({step.from, step.to, true});
    while (const dirent* const entry = ::readdir(stream)) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            steps.push_back({step.from + '/' + entry->d_name, step.to + '/' + entry->d_name});
    }
    ::closedir(stream);
    return 0;
}

int finishFolder(const Step& step)
{
    const Descriptor from = open(step.from, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    struct stat status = {};
    if (!from.isOpen() || ::fstat(from.number(), &status) != 0)
        return errno;
    const Descriptor to = open(step.to, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (!to.isOpen())
        return errno;
    copyAttributes(from.number(), to.number());
    return copyModeAndDates(to.number(), status);
}

int take(const Step& step, std::vector<Step>& steps)
{
    if (step.isFolderDone)
        return finishFolder(step);
    struct stat status = {};
    if (::lstat(step.from.constData(), &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return startFolder(step, steps);
    if (S_ISLNK(status.st_mode))
        return copyLink(step);
    return S_ISREG(status.st_mode) ? copyFile(step) : ENOTSUP;
}

} // namespace

int copyTree(const QByteArray& from, const QByteArray& to, QByteArray& failedPath)
{
    std::vector<Step> steps = {{from, to}};
    while (!steps.empty()) {
        const Step step = std::move(steps.back());
        steps.pop_back();
        if (const int failure = take(step, steps)) {
            failedPath = step.from;
            return failure;
        }
    }
    return 0;
}

} // namespace platform::system
