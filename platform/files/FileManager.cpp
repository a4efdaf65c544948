// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>
#include <sys/stat.h>

namespace platform {

bool fileExistsAtPath(const QString& path)
{
    struct stat status = {};
    const auto native = system::nativePath(path);
    return native && ::lstat(native->constData(), &status) == 0;
}

namespace {

int makeFolder(const QByteArray& path)
{
    return ::mkdir(path.constData(), system::newFolderMode) == 0 ? 0 : errno;
}

bool isFolder(const QByteArray& path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Makes every missing folder of the path. On failure path is the one that could not be made.
int makeFolders(QByteArray& path)
{
    const QByteArray whole = path;
    for (qsizetype end = whole.indexOf('/', 1);; end = whole.indexOf('/', end + 1)) {
        path = end < 0 ? whole : whole.left(end);
        const int failure = makeFolder(path);
        if (failure != 0 && (failure != EEXIST || !isFolder(path)))
            return failure;
        if (end < 0)
            return 0;
    }
}

} // namespace

bool createDirectory(const QString& path, IntermediateFolders intermediates, Error* error)
{
    auto native = system::nativePath(path);
    int failure = native ? makeFolder(*native) : EINVAL;
    if (native && intermediates == IntermediateFolders::Create) {
        if (failure == EEXIST && isFolder(*native))
            failure = 0;
        if (failure == ENOENT)
            failure = makeFolders(*native);
    }
    if (failure == 0)
        return true;
    setError(error, fileError(FileAccess::Write, native ? system::pathFromNative(*native) : path,
                              failure));
    return false;
}

std::optional<QString> pathWithin(const QString& folder, const QString& name, Error* error)
{
    const bool isPlain = !name.isEmpty() && name != QLatin1String(".") &&
                         name != QLatin1String("..") && !name.contains(QLatin1Char('/')) &&
                         !name.contains(QChar(0));
    if (isPlain && !folder.isEmpty())
        return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;

    setError(error,
             Error(cocoaErrorDomain, FileWriteInvalidFileNameError,
                   localizedString("\u201c%1\u201d is not the name of a file in \u201c%2\u201d.")
                       .arg(name, folder)));
    return std::nullopt;
}

} // namespace platform
