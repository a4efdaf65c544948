// SPDX-License-Identifier: MIT
#include "foundation/FileManagerSizesBMExtensions.h"

#include "foundation/FolderSize.h"
#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <cerrno>

#include <sys/stat.h>

using platform::FileAccess;

std::optional<quint64> sizeOfFileAtURLOutError(const QUrl& url, platform::Error* error)
{
    const QString path = url.toLocalFile();
    const auto native = platform::system::nativePath(path);
    struct stat status = {};
    if (!native || ::lstat(native->constData(), &status) != 0) {
        platform::setError(error, platform::fileError(FileAccess::Read, path, native ? errno : EINVAL));
        return std::nullopt;
    }
    if (!S_ISDIR(status.st_mode))
        return quint64(status.st_size);
    FolderSize folder;
    const auto size = folder.sizeOf(*native);
    if (!size) {
        const QString name = platform::system::pathFromNative(folder.failedName());
        platform::setError(error, platform::fileError(FileAccess::Read, name.isEmpty() ? path : path + u'/' + name,
                                                      folder.failure()));
    }
    return size;
}

quint64 sizeOfFileAtURL(const QUrl& url) { return sizeOfFileAtURLOutError(url).value_or(0); }
