// SPDX-License-Identifier: MIT
#include "tools/FilesFolderMerge.h"

#include "foundation/FileNameFitting.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/ImportManifest.h"

#include <QUrl>

using platform::Error;
namespace manifest = platform::manifest;

namespace {

std::optional<QVariantMap> readManifest(const QString& filesPath, Error* error)
{
    const std::optional<QVariant> list
        = platform::readPropertyList(filesPath + QLatin1Char('/') + manifest::fileName, error);
    return list ? std::optional(list->toMap()) : std::nullopt;
}

QVariantMap recordsOf(const QVariantMap& list, const QString& entity)
{
    return list.value(manifest::entitiesKey).toMap().value(entity).toMap();
}

// Adds the records of one folder, moved from one place to the other.
void takeItems(const QVariantMap& items, const QString& folderIdentifier, const QString& movedTo,
               QVariantMap& target)
{
    for (auto entry = items.cbegin(); entry != items.cend(); ++entry) {
        QVariantMap item = entry.value().toMap();
        if (item.value(manifest::folderKey).toString() != folderIdentifier)
            continue;
        item.insert(manifest::absoluteFilenameKey,
                    QString(movedTo + QLatin1Char('/') + item.value(manifest::filenameKey).toString()));
        target.insert(entry.key(), item);
    }
}

} // namespace

bool mergeFilesFolder(const QString& from, const QString& into, Error* error)
{
    if (!platform::fileExistsAtPath(into)
        && !platform::createDirectory(into, platform::IntermediateFolders::Create, error))
        return false;
    const std::optional<QVariantMap> source = readManifest(from, error);
    if (!source)
        return false;
    const QString targetManifest = into + QLatin1Char('/') + manifest::fileName;
    QVariantMap folders;
    QVariantMap items;
    if (platform::fileExistsAtPath(targetManifest)) {
        const std::optional<QVariantMap> existing = readManifest(into, error);
        if (!existing)
            return false;
        folders = recordsOf(*existing, manifest::folderEntity);
        items = recordsOf(*existing, manifest::itemEntity);
    }
    const QVariantMap newFolders = recordsOf(*source, manifest::folderEntity);
    for (auto entry = newFolders.cbegin(); entry != newFolders.cend(); ++entry) {
        const QString name = entry.value().toMap().value(manifest::nameKey).toString();
        const QString movedTo
            = into + QLatin1Char('/') + freeFileNameInDirectoryAtURL(name, QUrl::fromLocalFile(into));
        if (!platform::moveItem(from + QLatin1Char('/') + name, movedTo, error))
            return false;
        folders.insert(entry.key(), entry.value());
        takeItems(recordsOf(*source, manifest::itemEntity), entry.key(), movedTo, items);
    }
    QVariantMap merged = *source;
    merged.insert(manifest::removeFileOnCompletionKey, into);
    merged.insert(manifest::entitiesKey,
                  QVariantMap{{manifest::folderEntity, folders}, {manifest::itemEntity, items}});
    return platform::writePropertyList(targetManifest, merged, platform::PropertyListFormat::Xml, error);
}
