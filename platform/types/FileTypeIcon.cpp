// SPDX-License-Identifier: MIT
#include "platform/types/FileTypeIcon.h"

#include "platform/types/UniformTypes.h"

#include <QMimeDatabase>

namespace platform {

FileTypeIcon iconForFileType(QStringView extension, double width, double height)
{
    FileTypeIcon icon{{}, width, height};
    const QMimeType type = QMimeDatabase().mimeTypeForFile(
        QStringLiteral("x.") + extension.toString(), QMimeDatabase::MatchExtension);
    if (!extension.isEmpty() && !type.isDefault())
        icon.names << type.iconName() << type.genericIconName();
    const QString identifier = preferredIdentifierForExtension(extension);
    // Themes have no icon for a bookmark file; that of a page comes nearest.
    if (typeConformsTo(identifier, u"com.apple.internet-location") ||
        typeConformsTo(identifier, u"com.microsoft.internet-shortcut"))
        icon.names << QStringLiteral("text-html");
    icon.names << QStringLiteral("unknown");
    icon.names.removeDuplicates();
    return icon;
}

} // namespace platform
