// SPDX-License-Identifier: MIT
#include "app/ReleaseNotes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QUrl releaseNotesAddress()
{
    const QString installed =
        QDir::cleanPath(QCoreApplication::applicationDirPath() +
                        QStringLiteral("/../share/doc/vupuge/release-notes.html"));
    if (QFileInfo::exists(installed))
        return QUrl::fromLocalFile(installed);
    return QUrl(QStringLiteral(VUPUGE_RELEASE_NOTES_URL));
}
