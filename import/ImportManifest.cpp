// SPDX-License-Identifier: MIT
#include "import/ImportManifest.h"

#include "platform/core/DateFormatter.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/Uuid.h"
#include "platform/propertylist/PropertyList.h"

namespace manifest = platform::manifest;
using manifest::Record;

namespace {

QVariantMap valuesOf(const QMap<QString, Record>& records)
{
    QVariantMap values;
    for (auto record = records.cbegin(); record != records.cend(); ++record)
        values.insert(record.key(), *record.value());
    return values;
}

} // namespace

ImportManifest::ImportManifest(const QString& filesPath)
    : m_filesPath(filesPath)
{
}

Record ImportManifest::newFolderRecord(const QString& name)
{
    Record folder = manifest::makeRecord();
    folder->insert(manifest::entityNameKey, manifest::folderEntity);
    folder->insert(manifest::nameKey, name);
    folder->insert(manifest::identifierKey, platform::newUuidString());
    folder->insert(manifest::groupTypeKey, manifest::importedFolderGroupType);
    folder->insert(manifest::parentKey, manifest::rootFolder);
    const QString now = platform::mediumDateShortTimeString(QDateTime::currentDateTime());
    folder->insert(manifest::commentsKey,
                   platform::localizedString("Imported from Evernote, %@").replace(QLatin1String("%@"), now));
    return folder;
}

void ImportManifest::addFolder(const Record& folder)
{
    m_folders.insert(folder->value(manifest::identifierKey).toString(), folder);
}

void ImportManifest::addItems(const QList<Record>& items, const Record& folder)
{
    QStringList identifiers;
    for (const Record& item : items)
        identifiers += item->value(manifest::identifierKey).toString();
    folder->insert(manifest::itemsKey, identifiers);
    for (const Record& item : items) {
        const auto copy = std::make_shared<QVariantMap>(*item);
        copy->insert(manifest::folderKey, folder->value(manifest::identifierKey));
        m_items.insert(copy->value(manifest::identifierKey).toString(), copy);
    }
}

QVariantMap ImportManifest::propertyList() const
{
    return {{manifest::exporterVersionKey, manifest::exporterVersion},
            {manifest::removeFileOnCompletionKey, m_filesPath},
            {manifest::entitiesKey, QVariantMap{{manifest::folderEntity, valuesOf(m_folders)},
                                                {manifest::itemEntity, valuesOf(m_items)}}}};
}

QString ImportManifest::path() const { return m_filesPath + QLatin1Char('/') + manifest::fileName; }

bool ImportManifest::write(platform::Error* error) const
{
    return platform::writePropertyList(path(), propertyList(), platform::PropertyListFormat::Xml, error);
}
