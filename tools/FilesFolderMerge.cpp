// SPDX-License-Identifier: MIT
#include "tools/FilesFolderMerge.h"

#include "platform/files/FileManager.h"
#include "platform/scripting/ImportManifest.h"

#include <QUrl>

namespace manifest = platform::manifest;

FilesFolderMerge::FilesFolderMerge(QString directory, const QString& filesPath)
    : m_directory(std::move(directory))
    , m_filesPath(filesPath)
    , m_manifest(filesPath)
{
}

bool FilesFolderMerge::add(const ImportManifest& manifest, const QString& from,
                           platform::Error* error)
{
    if (!platform::createDirectory(m_directory, platform::IntermediateFolders::Create, error))
        return false;
    const auto folders = manifest.folders();
    QStringList movedTo;
    for (const manifest::Record& folder : folders) {
        const QString name = folder->value(manifest::nameKey).toString();
        movedTo += m_freeNames.freeName(name, QUrl::fromLocalFile(m_directory));
        if (!platform::moveItem(from + QLatin1Char('/') + name,
                                m_directory + QLatin1Char('/') + movedTo.last(), error))
            return false;
    }
    for (auto folder = folders.cbegin(); folder != folders.cend(); ++folder) {
        const QString name = folder.value()->value(manifest::nameKey).toString();
        m_manifest.addMovedFolder(manifest, folder.key(), from + QLatin1Char('/') + name,
                                  m_filesPath + QLatin1Char('/') + movedTo.takeFirst());
    }
    return true;
}

bool FilesFolderMerge::writeManifest(platform::Error* error) const
{
    return m_manifest.writeToFile(m_directory + QLatin1Char('/') + manifest::fileName, error);
}
