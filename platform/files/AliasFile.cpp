// SPDX-License-Identifier: MIT
#include "platform/files/AliasFile.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/files/ItemKind.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr QByteArrayView aliasFileMark("book\0\0\0\0mark\0\0\0\0", 16);
// Real ones have a few hundred bytes.
constexpr qint64 maximumBookmarkSize = 4 * 1024 * 1024;

struct FileBeginning {
    mode_t mode = 0;
    qint64 size = 0;
    QByteArray bytes;
};

// At most as many bytes as asked for; none for anything but a regular file that can be read.
std::optional<FileBeginning> beginningOf(const QByteArray& path, qint64 maximumSize)
{
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0)
        return std::nullopt;
    FileBeginning beginning{status.st_mode, status.st_size, {}};
    if (!S_ISREG(status.st_mode))
        return beginning;
    const system::Descriptor file =
        system::open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    beginning.bytes.resize(std::min<qint64>(status.st_size, maximumSize));
    const ssize_t read = file.isOpen() ? ::pread(file.number(), beginning.bytes.data(),
                                                 size_t(beginning.bytes.size()), 0)
                                       : 0;
    beginning.bytes.truncate(std::max<ssize_t>(read, 0));
    return beginning;
}

std::optional<QString> endOfLink(const QString& path, const QByteArray& native, Error* error)
{
    const std::unique_ptr<char, decltype(&std::free)> end(::realpath(native.constData(), nullptr),
                                                          &std::free);
    if (end)
        return system::pathFromNative(QByteArray(end.get()));
    const int failure = errno;
    const Error reason = fileError(FileAccess::Read, path, failure);
    setError(error, failure == ENOENT ? Error(cocoaErrorDomain, FileNoSuchFileError,
                                              reason.localizedDescription())
                                            .withUnderlyingError(*reason.underlyingError())
                                      : reason);
    return std::nullopt;
}

} // namespace

std::optional<bool> isAlias(const QString& path, Error* error)
{
    const auto native = system::nativePath(path);
    const auto beginning = native ? beginningOf(*native, aliasFileMark.size()) : std::nullopt;
    if (!beginning) {
        setError(error, fileError(FileAccess::Read, path, native ? errno : EINVAL));
        return std::nullopt;
    }
    return S_ISLNK(beginning->mode) ||
           (S_ISREG(beginning->mode) &&
            (beginning->bytes == aliasFileMark || (finderFlags(*native) & finderFlagAlias) != 0));
}

std::optional<QString> resolvedAliasPath(const QString& path, Error* error)
{
    const auto native = system::nativePath(path);
    const auto beginning = native ? beginningOf(*native, maximumBookmarkSize) : std::nullopt;
    if (!beginning) {
        setError(error, fileError(FileAccess::Read, path, native ? errno : EINVAL));
        return std::nullopt;
    }
    if (S_ISLNK(beginning->mode))
        return endOfLink(path, *native, error);
    const auto original = beginning->size <= maximumBookmarkSize
                              ? pathInBookmarkData(beginning->bytes)
                              : std::nullopt;
    if (!original) {
        setError(error, Error(cocoaErrorDomain, FileReadCorruptFileError,
                              localizedString("\u201c%1\u201d is not an alias.").arg(path)));
        return std::nullopt;
    }
    if (!fileExistsAtPath(*original)) {
        setError(error,
                 Error(cocoaErrorDomain, FileNoSuchFileError,
                       localizedString("The original of \u201c%1\u201d is not at \u201c%2\u201d.")
                           .arg(path, *original)));
        return std::nullopt;
    }
    return original;
}

} // namespace platform
