// SPDX-License-Identifier: MIT
#include "platform/core/PathUtilities.h"

namespace platform {

namespace {

QStringView withoutTrailingSeparators(QStringView path)
{
    while (path.size() > 1 && path.back() == u'/')
        path.chop(1);
    return path;
}

QStringView lastComponent(QStringView path)
{
    const QStringView trimmed = withoutTrailingSeparators(path);
    return trimmed.size() == 1 ? trimmed : trimmed.sliced(trimmed.lastIndexOf(u'/') + 1);
}

QStringView extensionOf(QStringView path)
{
    const QStringView name = lastComponent(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot <= 0 || dot == name.size() - 1)
        return {};
    const QStringView stem = name.first(dot);
    const QStringView extension = name.sliced(dot + 1);
    if (stem == u"." || stem == u".." || extension.contains(u' '))
        return {};
    return extension;
}

} // namespace

QString lastPathComponent(const QString& path) { return lastComponent(path).toString(); }

QString pathExtension(const QString& path) { return extensionOf(path).toString(); }

QString stringByDeletingPathExtension(const QString& path)
{
    const QStringView trimmed = withoutTrailingSeparators(path);
    const qsizetype extension = extensionOf(path).size();
    return (extension == 0 ? trimmed : trimmed.chopped(extension + 1)).toString();
}

} // namespace platform
