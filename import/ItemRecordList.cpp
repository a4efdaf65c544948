// SPDX-License-Identifier: MIT
#include "import/ItemRecordList.h"

#include <QCborArray>
#include <QCborMap>
#include <QDataStream>
#include <QDateTime>
#include <QIODevice>

#include <algorithm>
#include <array>

namespace manifest = platform::manifest;
using manifest::Record;

namespace {

// A packed record is a CBOR map. The keys that nearly every record has stand there as their position here, any
// other by its name. The absolute path is most often the file name in a folder of the list, and then only the
// folder's number is kept.
constexpr int folderOfFile = -1;

const std::array<QString, 11>& knownKeys()
{
    static const std::array<QString, 11> keys = {
        manifest::entityNameKey,   manifest::nameKey,        manifest::identifierKey,       manifest::commentsKey,
        manifest::itemTypeKey,     manifest::filenameKey,    manifest::absoluteFilenameKey, manifest::extensionHiddenKey,
        manifest::dateCreatedKey,  manifest::dateModifiedKey, manifest::tagsStringKey};
    return keys;
}

QCborValue packedKey(const QString& key)
{
    const auto known = std::find(knownKeys().begin(), knownKeys().end(), key);
    return known == knownKeys().end() ? QCborValue(key) : QCborValue(qint64(known - knownKeys().begin()));
}

QString unpackedKey(const QCborValue& key)
{
    return key.isInteger() ? knownKeys().at(std::size_t(key.toInteger())) : key.toString();
}

// A date is an array of its milliseconds since 1970 (CBOR's own dates take three times as much); whatever has no
// short form, such as text that is not valid UTF-16, is a byte string in the form of QDataStream.
QCborValue packedValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::QString:
        if (value.toString().isValidUtf16())
            return value.toString();
        break;
    case QMetaType::QDateTime:
        if (value.toDateTime().isValid())
            return QCborArray{value.toDateTime().toMSecsSinceEpoch()};
        break;
    default:
        break;
    }
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

QVariant unpackedValue(const QCborValue& value)
{
    if (value.isBool())
        return value.toBool();
    if (value.isInteger())
        return value.toInteger();
    if (value.isString())
        return value.toString();
    if (value.isArray())
        return QDateTime::fromMSecsSinceEpoch(value.toArray().first().toInteger(), Qt::UTC);
    QVariant unpacked;
    QDataStream stream(value.toByteArray());
    stream >> unpacked;
    return unpacked;
}

// The folder of the record's file; empty where the path does not end in the file's name.
QString folderOf(const QVariantMap& record)
{
    const QVariant path = record.value(manifest::absoluteFilenameKey);
    const QString ending = QLatin1Char('/') + record.value(manifest::filenameKey).toString();
    if (path.typeId() != QMetaType::QString || !path.toString().endsWith(ending))
        return {};
    return path.toString().chopped(ending.size());
}

} // namespace

void ItemRecordList::append(const Record& record)
{
    const QString folder = folderOf(*record);
    if (!folder.isEmpty() && (m_folders.isEmpty() || m_folders.last() != folder))
        m_folders += folder;
    QCborMap packed;
    for (auto entry = record->cbegin(); entry != record->cend(); ++entry) {
        if (entry.key() == manifest::absoluteFilenameKey && !folder.isEmpty())
            packed.insert(folderOfFile, m_folders.size() - 1);
        else
            packed.insert(packedKey(entry.key()), packedValue(entry.value()));
    }
    QByteArray bytes = packed.toCborValue().toCbor();
    bytes.squeeze();
    m_records += bytes;
}

void ItemRecordList::moveFolder(const QString& from, const QString& to)
{
    for (QString& folder : m_folders) {
        if (folder == from || folder.startsWith(from + QLatin1Char('/')))
            folder.replace(0, from.size(), to);
    }
}

Record ItemRecordList::at(qsizetype position) const
{
    const Record record = manifest::makeRecord();
    const QCborMap packed = QCborValue::fromCbor(m_records.at(position)).toMap();
    for (const auto entry : packed) {
        if (entry.first != QCborValue(folderOfFile))
            record->insert(unpackedKey(entry.first), unpackedValue(entry.second));
    }
    const QCborValue folder = packed.value(folderOfFile);
    if (folder.isInteger())
        record->insert(manifest::absoluteFilenameKey,
                       QString(m_folders.at(folder.toInteger()) + QLatin1Char('/')
                               + record->value(manifest::filenameKey).toString()));
    return record;
}
