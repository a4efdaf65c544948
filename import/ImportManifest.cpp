// SPDX-License-Identifier: MIT
#include "import/ImportManifest.h"

#include "platform/core/DateFormatter.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/Uuid.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/XmlPropertyListStream.h"

#include <algorithm>

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

bool ImportManifest::removeUnwritableDates(QVariantMap& item)
{
    bool removed = false;
    for (const QString& key : {manifest::dateCreatedKey, manifest::dateModifiedKey}) {
        const auto date = item.constFind(key);
        if (date == item.constEnd() || platform::xmlPropertyListHoldsDate(date->toDateTime()))
            continue;
        item.erase(date);
        removed = true;
    }
    return removed;
}

void ImportManifest::addFolder(const Record& folder)
{
    m_folders.insert(folder->value(manifest::identifierKey).toString(), folder);
}

void ImportManifest::addItems(const ItemRecordList& items, const Record& folder)
{
    QStringList identifiers;
    for (qsizetype position = 0; position < items.size(); ++position)
        identifiers += items.at(position)->value(manifest::identifierKey).toString();
    m_items.push_back({items, identifiers, folder->value(manifest::identifierKey)});
    identifiers.removeDuplicates();
    folder->insert(manifest::itemsKey, identifiers);
}

void ImportManifest::addMovedFolder(const ImportManifest& other, const QString& identifier, const QString& from,
                                    const QString& to)
{
    m_folders.insert(identifier, other.m_folders.value(identifier));
    for (FolderItems items : other.m_items) {
        if (items.folderIdentifier.toString() != identifier)
            continue;
        items.records.moveFolder(from, to);
        m_items.push_back(std::move(items));
    }
}

const QString& ImportManifest::identifierAt(const Place& place) const
{
    return m_items[place.folder].identifiers[place.record];
}

QVariantMap ImportManifest::itemAt(const Place& place) const
{
    QVariantMap item = *m_items[place.folder].records.at(place.record);
    item.insert(manifest::folderKey, m_items[place.folder].folderIdentifier);
    return item;
}

std::vector<ImportManifest::Place> ImportManifest::itemPlaces() const
{
    std::vector<Place> places;
    for (std::size_t folder = 0; folder < m_items.size(); ++folder) {
        for (qsizetype record = 0; record < m_items[folder].records.size(); ++record)
            places.push_back({folder, record});
    }
    std::stable_sort(places.begin(), places.end(), [this](const Place& left, const Place& right) {
        return identifierAt(left) < identifierAt(right);
    });
    // Reversed, the last of equal ones is the first, which stays.
    const auto firstKept = std::unique(places.rbegin(), places.rend(), [this](const Place& left, const Place& right) {
        return identifierAt(left) == identifierAt(right);
    });
    places.erase(places.begin(), firstKept.base());
    return places;
}

QVariantMap ImportManifest::propertyList() const
{
    QVariantMap items;
    for (const Place& place : itemPlaces())
        items.insert(identifierAt(place), itemAt(place));
    return {{manifest::exporterVersionKey, manifest::exporterVersion},
            {manifest::removeFileOnCompletionKey, m_filesPath},
            {manifest::entitiesKey,
             QVariantMap{{manifest::folderEntity, valuesOf(m_folders)}, {manifest::itemEntity, items}}}};
}

QString ImportManifest::path() const { return m_filesPath + QLatin1Char('/') + manifest::fileName; }

bool ImportManifest::writeToFile(const QString& path, platform::Error* error) const
{
    platform::XmlPropertyListStream list(path);
    list.beginDictionary();
    list.writeKey(manifest::entitiesKey);
    list.beginDictionary();
    list.writeKey(manifest::folderEntity);
    list.writeValue(valuesOf(m_folders));
    list.writeKey(manifest::itemEntity);
    list.beginDictionary();
    for (const Place& place : itemPlaces()) {
        if (list.hasFailed())
            break;
        list.writeKey(identifierAt(place));
        list.writeValue(itemAt(place));
    }
    list.endDictionary();
    list.endDictionary();
    list.writeKey(manifest::exporterVersionKey);
    list.writeValue(manifest::exporterVersion);
    list.writeKey(manifest::removeFileOnCompletionKey);
    list.writeValue(m_filesPath);
    list.endDictionary();
    return list.commit(error);
}
