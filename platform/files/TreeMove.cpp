// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"
#include "platform/files/TreeCopy.h"

#include <cerrno>
#include <cstdio>

namespace platform {

namespace {

// At every moment the item is whole at the source, at the target, or at both: the copy appears
// under its name only when it is complete, and the source disappears from under its own before it
// is taken apart.
bool copyAndRemove(const QByteArray& from, const QByteArray& to, Error* error)
{
    const QByteArray unfinished = system::privateSibling(to);
    QByteArray failedPath = from;
    int failure = system::copyTree(from, unfinished, failedPath);
    if (failure == 0) {
        failedPath = to;
        failure = system::renameWithoutReplacing(unfinished, to);
    }
    if (failure != 0) {
        static_cast<void>(removeItem(system::pathFromNative(unfinished)));
        setError(error, fileError(FileAccess::Write, system::pathFromNative(failedPath), failure));
        return false;
    }

    const QByteArray leftover = system::privateSibling(from);
    if (::rename(from.constData(), leftover.constData()) != 0) {
        failure = errno;
        static_cast<void>(removeItem(system::pathFromNative(to)));
        setError(error, fileError(FileAccess::Write, system::pathFromNative(from), failure));
        return false;
    }
    // The item has moved; what cannot be removed of the old one no longer bears its name.
    static_cast<void>(removeItem(system::pathFromNative(leftover)));
    return true;
}

} // namespace

bool moveItem(const QString& from, const QString& to, Error* error)
{
    const auto nativeFrom = system::nativePath(from);
    const auto nativeTo = system::nativePath(to);
    const int failure =
        nativeFrom && nativeTo ? system::renameWithoutReplacing(*nativeFrom, *nativeTo) : EINVAL;
    if (failure == 0)
        return true;
    if (failure == EXDEV)
        return copyAndRemove(*nativeFrom, *nativeTo, error);
    const bool isAboutSource = failure == ENOENT && !fileExistsAtPath(from);
    setError(error, fileError(FileAccess::Write, isAboutSource ? from : to, failure));
    return false;
}

} // namespace platform
