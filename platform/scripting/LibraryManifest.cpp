// SPDX-License-Identifier: MIT
#include "platform/scripting/LibraryManifest.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/ManifestSources.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include <QSet>

#include <cerrno>

namespace platform {

namespace {

using Code = QuilleryLibraryErrorCode;

// Room for some millions of records; what is larger is no manifest of ours.
constexpr qint64 maximumManifestLength = qint64(1) << 30;

bool isMap(const QVariant& value) { return value.metaType().id() == QMetaType::QVariantMap; }

bool isText(const QVariant& value) { return value.metaType().id() == QMetaType::QString; }

bool malformed(const QString& reason, Error* error)
{
    const QString text = localizedString("The manifest is damaged: %1");
    setError(error, quilleryLibraryError(Code::MalformedManifest, text.arg(reason)));
    return false;
}

QString canonicalFolderOf(const QString& path)
{
    return QFileInfo(QFileInfo(path).path()).canonicalFilePath();
}

} // namespace

std::optional<LibraryManifest> LibraryManifest::read(const QString& path, Error* error)
{
    LibraryManifest manifest;
    manifest.m_filesFolder = canonicalFolderOf(path);
    manifest.m_path = manifest.m_filesFolder + QLatin1Char('/') + lastPathComponent(path);
    const QFileInfo file(manifest.m_path);
    if (manifest.m_filesFolder.isEmpty() || file.isSymLink() || !file.isFile()
        || file.suffix() != QFileInfo(manifest::fileName).suffix()) {
        const QString text = localizedString("\u201c%1\u201d is not an import manifest.");
        setError(error, quilleryLibraryError(Code::NotAManifest, text.arg(path)));
        return std::nullopt;
    }

    Error cause;
    std::optional<QVariant> list;
    if (file.size() > maximumManifestLength)
        cause = fileError(FileAccess::Read, path, EFBIG);
    else if (const auto bytes = readFile(manifest.m_path, &cause))
        list = propertyListFromData(*bytes, &cause);
    if (!list) {
        const QString text = localizedString("The manifest \u201c%1\u201d could not be read: %2");
        setError(error, quilleryLibraryError(Code::UnreadableManifest,
                                             text.arg(path, cause.localizedDescription()), cause));
        return std::nullopt;
    }
    if (!manifest.readTopLevel(*list, error) || !manifest.checkSources(error))
        return std::nullopt;
    return manifest;
}

bool LibraryManifest::readTopLevel(const QVariant& list, Error* error)
{
    const QVariant entities = list.toMap().value(manifest::entitiesKey);
    if (!isMap(list) || !isMap(entities))
        return malformed(localizedString("it holds no entities."), error);
    m_otherValues = list.toMap();

    const QVariant removal = m_otherValues.value(manifest::removeFileOnCompletionKey);
    if (removal.isValid()
        && (!isText(removal) || QFileInfo(removal.toString()).canonicalFilePath() != m_filesFolder)) {
        const QString text = localizedString(
            "The manifest asks for \u201c%1\u201d to be removed, which is not its files folder.");
        setError(error, quilleryLibraryError(Code::UnsafeManifest, text.arg(removal.toString())));
        return false;
    }
    m_removesFilesFolder = removal.isValid();

    QVariantMap others = entities.toMap();
    const QVariant folders = others.value(manifest::folderEntity, QVariantMap());
    const QVariant items = others.value(manifest::itemEntity, QVariantMap());
    if (!isMap(folders) || !isMap(items))
        return malformed(localizedString("its records are not in a dictionary."), error);
    others.remove(manifest::folderEntity);
    others.remove(manifest::itemEntity);
    m_otherValues.insert(manifest::entitiesKey, others);
    return readFolders(folders.toMap(), error) && readItems(items.toMap(), error);
}

bool LibraryManifest::readFolders(const QVariantMap& records, Error* error)
{
    for (auto record = records.begin(); record != records.end(); ++record) {
        if (!isMap(*record))
            return malformed(localizedString("\u201c%1\u201d is not a folder's record.").arg(record.key()),
                             error);
        m_folders.push_back({record.key(), record->toMap(), {}});
    }
    std::stable_sort(m_folders.begin(), m_folders.end(), [](const Folder& left, const Folder& right) {
        return left.record.value(manifest::nameKey).toString()
               < right.record.value(manifest::nameKey).toString();
    });
    return true;
}

bool LibraryManifest::readItems(const QVariantMap& records, Error* error)
{
    QHash<QString, QVariantMap> itemsOfFolder; // by identifier
    for (auto record = records.begin(); record != records.end(); ++record) {
        const QVariantMap values = record->toMap();
        if (!isMap(*record) || !isText(values.value(manifest::absoluteFilenameKey))
            || !isText(values.value(manifest::folderKey)))
            return malformed(localizedString("\u201c%1\u201d is not an item's record.").arg(record.key()),
                             error);
        itemsOfFolder[values.value(manifest::folderKey).toString()].insert(record.key(), values);
    }
    for (Folder& folder : m_folders) {
        QVariantMap items = itemsOfFolder.take(folder.identifier);
        const auto add = [&](const QString& identifier, const QVariant& record) {
            folder.items.push_back({identifier, record.toMap(), {}, {}});
        };
        for (const QVariant& identifier : folder.record.value(manifest::itemsKey).toList()) {
            const QVariant record = items.take(identifier.toString());
            if (record.isValid())
                add(identifier.toString(), record);
        }
        for (auto rest = items.begin(); rest != items.end(); ++rest)
            add(rest.key(), *rest);
    }
    if (!itemsOfFolder.isEmpty()) {
        return malformed(localizedString("it has no folder \u201c%1\u201d, which items belong to.")
                             .arg(itemsOfFolder.begin().key()),
                         error);
    }
    return true;
}

bool LibraryManifest::checkSources(Error* error)
{
    ManifestSources sources(m_filesFolder,
                            m_otherValues.value(manifest::removeFileOnCompletionKey).toString());
    QSet<QString> files;
    QSet<QString> parents;
    for (Folder& folder : m_folders) {
        for (Item& item : folder.items) {
            const QString path = item.record.value(manifest::absoluteFilenameKey).toString();
            ManifestSources::Source source = sources.check(path);
            if (source.state == ManifestSources::State::Unsafe) {
                setError(error, source.error);
                return false;
            }
            if (source.state == ManifestSources::State::Unavailable)
                item.error = source.error;
            item.sourceFile = source.relativePath;
            if (files.contains(item.sourceFile) || item.sourceFile == lastPathComponent(m_path))
                return malformed(localizedString("\u201c%1\u201d cannot be taken twice.").arg(path), error);
            files.insert(item.sourceFile);
            parents.insert(
                item.sourceFile.left(std::max<qsizetype>(item.sourceFile.lastIndexOf(QLatin1Char('/')), 0)));
        }
    }
    // An item inside another one would be taken with that one.
    for (QString folder : std::as_const(parents)) {
        while (!folder.isEmpty()) {
            if (files.contains(folder))
                return malformed(localizedString("\u201c%1\u201d cannot be taken twice.").arg(folder), error);
            folder.truncate(std::max<qsizetype>(folder.lastIndexOf(QLatin1Char('/')), 0));
        }
    }
    return true;
}

QStringList LibraryManifest::expectedEntries() const
{
    QSet<QString> entries = {lastPathComponent(m_path)};
    for (const Folder& folder : m_folders) {
        entries.insert(folder.record.value(manifest::nameKey).toString());
        for (const Item& item : folder.items)
            entries.insert(item.sourceFile.section(QLatin1Char('/'), 0, 0));
    }
    return QStringList(entries.begin(), entries.end());
}

} // namespace platform
