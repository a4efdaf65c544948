// SPDX-License-Identifier: MIT
#include "foundation/FileManagerItemsBMExtensions.h"

#include "platform/files/FileUse.h"
#include "platform/files/ItemKind.h"

bool isDirectoryAtPath(const QString& path)
{
    const auto kind = platform::itemKind(path);
    return kind && kind->isDirectory && !kind->isPackage;
}

bool isHiddenFileAtPath(const QString& path)
{
    if (path.startsWith(u'.'))
        return true;
    const auto kind = platform::itemKind(path);
    return kind && kind->isHidden;
}

bool isSymbolicLinkAtPath(const QString& path)
{
    const auto kind = platform::itemKind(path);
    return kind && kind->isSymbolicLink;
}

bool itemIsBusyAtPath(const QString& path) { return platform::isFileInUse(path).value_or(false); }
