// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryFilesFolder.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

namespace platform {

namespace {

bool isWhole(const QString& manifestPath, Error* cause)
{
    const QFileInfo info(manifestPath);
    if (info.isSymLink() || !info.isFile()) {
        *cause = fileError(FileAccess::Read, manifestPath, fileExistsAtPath(manifestPath) ? ENOTSUP : ENOENT);
        return false;
    }
    // Room for the closing tag and the line ends after it.
    constexpr qint64 tailLength = 64;
    QFile file(manifestPath);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, file.size() - tailLength))) {
        *cause = fileError(FileAccess::Read, manifestPath, EIO);
        return false;
    }
    if (file.readAll().trimmed().endsWith("</plist>"))
        return true;
    *cause =
        Error(cocoaErrorDomain, FileReadCorruptFileError, localizedString("It does not reach to its end."));
    return false;
}

} // namespace

QString QuilleryFilesFolder::version() { return quillery::embeddedVersion; }

bool QuilleryFilesFolder::importFiles(const QStringList& paths, ImportMode, const QString&, int,
                                      const QString&, int, const QStringList&, Error* error)
{
    for (const QString& path : paths) {
        Error cause;
        if (isWhole(path, &cause))
            continue;
        const QString text = localizedString("The manifest \u201c%1\u201d was not written whole, so nothing "
                                             "can be imported from it. Perhaps the "
                                             "disk is full.");
        setError(error,
                 quilleryLibraryError(QuilleryLibraryErrorCode::IncompleteManifest, text.arg(path), cause));
        return false;
    }
    m_manifestPaths += paths;
    return true;
}

} // namespace platform
