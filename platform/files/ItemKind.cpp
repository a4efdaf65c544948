// SPDX-License-Identifier: MIT
#include "platform/files/ItemKind.h"

#include "platform/core/PathUtilities.h"
#include "platform/files/ExtendedAttributes.h"
#include "platform/files/FileManager.h"
#include "platform/files/SystemCalls.h"

#include <QtEndian>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace platform {

bool isPackageExtension(const QString& extension)
{
    // Those that macOS itself declares, and the note packages of the notes application.
    static const char* const extensions[] = {
        "action",      "app",      "appex",        "bundle", "component", "dictionary",
        "docset",      "kext",     "mdimporter",   "mpkg",   "pkg",       "playground",
        "plugin",      "prefpane", "qlgenerator",  "qlnote", "rtfd",      "saver",
        "scptd",       "service",  "sparsebundle", "wdgt",   "workflow",  "xcodeproj",
        "xcworkspace", "xpc"};
    return std::any_of(std::begin(extensions), std::end(extensions), [&](const char* known) {
        return extension.compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
    });
}

quint16 finderFlags(const QByteArray& nativePath)
{
    char info[attributes::finderInfoLength] = {};
    const ssize_t size =
        ::lgetxattr(nativePath.constData(), attributes::finderInfo, info, sizeof info);
    return size == ssize_t(sizeof info)
               ? qFromBigEndian<quint16>(info + attributes::finderFlagsOffset)
               : 0;
}

std::optional<ItemKind> itemKind(const QString& path, Error* error)
{
    const auto native = system::nativePath(path);
    struct stat status = {};
    if (!native || ::lstat(native->constData(), &status) != 0) {
        setError(error, fileError(FileAccess::Read, path, native ? errno : EINVAL));
        return std::nullopt;
    }
    const quint16 flags = finderFlags(*native);
    ItemKind kind;
    kind.isDirectory = S_ISDIR(status.st_mode);
    kind.isPackage = kind.isDirectory &&
                     ((flags & finderFlagBundle) != 0 || isPackageExtension(pathExtension(path)));
    kind.isSymbolicLink = S_ISLNK(status.st_mode);
    kind.isHidden = (flags & finderFlagInvisible) != 0 || lastPathComponent(path).startsWith(u'.');
    return kind;
}

} // namespace platform
