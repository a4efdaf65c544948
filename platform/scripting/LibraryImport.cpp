// SPDX-License-Identifier: MIT
#include "platform/scripting/LibraryImport.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/core/SystemLog.h"
#include "platform/files/FileManager.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/QuilleryLibraryError.h"
#include "platform/scripting/RecordAttributes.h"

namespace platform {

namespace {

QString textOf(const QVariantMap& record, const QString& key)
{
    const QVariant value = record.value(key);
    return value.metaType().id() == QMetaType::QString ? value.toString() : QString();
}

template <typename Item>
QString displayName(const Item& item)
{
    const QString name = textOf(item.record, manifest::nameKey);
    return name.isEmpty() ? stringByDeletingPathExtension(lastPathComponent(item.sourceFile)) : name;
}

// For what went with its files folder, when another run laid its own files out at the same place.
Error goneError(const QString& name)
{
    const QString text = localizedString(
        "\u201c%1\u201d is gone: its files were removed before the import was finished.");
    return quilleryLibraryError(QuilleryLibraryErrorCode::ItemsNotTaken, text.arg(name));
}

// Copies that were under way when an import was interrupted. Nothing else in a stage is hidden.
void removeUnfinished(const QString& stage)
{
    const QStringList names = QDir(stage).entryList(
        {QStringLiteral(".*")}, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        if (name != LibraryCatalogue::fileName)
            static_cast<void>(removeItem(stage + QLatin1Char('/') + name));
    }
}

} // namespace

LibraryImport::LibraryImport(const QString& library, LibraryNames& names)
    : m_library(library)
    , m_names(names)
    , m_staging(library, ImportStaging::newName())
{
}

bool LibraryImport::begin(LibraryManifest& manifest, Error* error)
{
    const QStringList expectedEntries = manifest.expectedEntries();
    for (LibraryManifest::Folder& folder : manifest.folders()) {
        LibraryCatalogue catalogue{manifest.otherValues(), folder.record, {}};
        LibraryNames names;
        for (LibraryManifest::Item& item : folder.items) {
            if (item.error) {
                fail(item.record, *item.error);
                continue;
            }
            const QString fileName = names.takeFreeName(displayName(item), pathExtension(item.sourceFile));
            catalogue.items.push_back({fileName, item.sourceFile, std::move(item.record)});
        }
        if (!catalogue.items.empty() || folder.items.empty())
            m_catalogues.push_back(std::move(catalogue));
    }
    const ImportStaging::Journal journal = {manifest.path(), manifest.filesFolder(),
                                            manifest.removesFilesFolder(), expectedEntries, m_failedItems};
    m_ownsFilesFolder = m_staging.create(journal, m_catalogues, error);
    return m_ownsFilesFolder;
}

void LibraryImport::resume(const QString& stagingName)
{
    m_staging = ImportStaging(m_library, stagingName);
    m_staging.readJournal();
    m_isResumed = true;
    m_ownsFilesFolder = m_staging.hasMarker();
    if (m_staging.journal()) {
        m_failedItems = m_staging.journal()->failedItems;
        m_sources.emplace(m_staging.journal()->filesFolder, QString());
    }
}

QString LibraryImport::manifestPath() const
{
    return m_staging.journal() ? m_staging.journal()->manifestPath : QString();
}

void LibraryImport::fail(const QVariantMap& record, const Error& error)
{
    const QString path = textOf(record, manifest::absoluteFilenameKey);
    const QString name = textOf(record, manifest::nameKey);
    m_failedItems.push_back({name.isEmpty() ? lastPathComponent(path) : name, path, error});
}

bool LibraryImport::finish(Error* error)
{
    bool isFinished = true;
    const auto note = [&](bool isStageFinished) {
        isFinished = isFinished && isStageFinished;
    };
    if (m_isResumed) {
        const QStringList stages = m_staging.stagePaths();
        for (const QString& stage : stages)
            note(finishInterruptedStage(stage, isFinished ? error : nullptr));
    }
    for (size_t number = 0; number < m_catalogues.size(); ++number) {
        note(finishStage(m_staging.stagePath(number), std::move(m_catalogues[number]),
                         isFinished ? error : nullptr));
    }
    if (!isFinished)
        return false;
    if (m_ownsFilesFolder && m_failedItems.empty() && m_staging.journal()->removesFilesFolder)
        m_staging.removeFilesFolder();
    else
        m_staging.removeMarker();
    m_staging.remove();
    return true;
}

bool LibraryImport::finishInterruptedStage(const QString& stage, Error* error)
{
    removeUnfinished(stage);
    auto catalogue = LibraryCatalogue::read(stage);
    const bool isEmpty = QDir(stage).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot);
    // Nothing was moved before the journal was complete.
    if (!m_staging.journal() && isEmpty)
        return true;
    if (!catalogue) {
        const QString text = localizedString("The catalogue of an interrupted import is damaged.");
        m_failedItems.push_back({lastPathComponent(stage), stage,
                                 quilleryLibraryError(QuilleryLibraryErrorCode::UnfinishedImport, text)});
        m_staging.noteFailedItems(m_failedItems);
        if (isEmpty)
            return true;
    }
    return finishStage(stage, std::move(catalogue), error);
}

bool LibraryImport::finishStage(const QString& stage, std::optional<LibraryCatalogue> catalogue, Error* error)
{
    if (!catalogue)
        return publish(stage, localizedString("Recovered Items"), error);
    const size_t planned = catalogue->items.size();
    takeItems(stage, *catalogue);
    if (catalogue->items.size() < planned) {
        // Before the catalogue forgets an item, so that no later attempt removes the files folder.
        m_staging.noteFailedItems(m_failedItems);
        if (catalogue->items.empty())
            return true;
        if (!catalogue->write(stage, error))
            return false;
    }
    ResourceValues values;
    values.comment = textOf(catalogue->folderRecord, manifest::commentsKey);
    if (!values.comment->isEmpty())
        static_cast<void>(setResourceValues(stage, values));
    return publish(stage, textOf(catalogue->folderRecord, manifest::nameKey), error);
}

void LibraryImport::setAttributes(const QString& path, const QVariantMap& record)
{
    Error error;
    if (setResourceValues(path, resourceValuesOfRecord(record), &error) || m_attributesFailed)
        return;
    // Once an import: a file system without attributes would fill the log.
    m_attributesFailed = true;
    systemLog(QStringLiteral("Couldn't set resource values on %1: %2").arg(path, error.description()));
}

void LibraryImport::takeItems(const QString& stage, LibraryCatalogue& catalogue)
{
    std::erase_if(catalogue.items, [&](const LibraryCatalogue::Item& item) {
        if (!m_ownsFilesFolder && !fileExistsAtPath(stage + QLatin1Char('/') + item.fileName)) {
            fail(item.record, goneError(displayName(item)));
            return true;
        }
        Error error;
        if (m_obstacle || !takeItem(stage, item, &error)) {
            const bool isObstacle
                = error.code() == FileWriteOutOfSpaceError || error.code() == FileWriteVolumeReadOnlyError;
            if (!m_obstacle && isObstacle)
                m_obstacle = error;
            fail(item.record, m_obstacle ? *m_obstacle : error);
            return true;
        }
        setAttributes(stage + QLatin1Char('/') + item.fileName, item.record);
        return false;
    });
}

bool LibraryImport::takeItem(const QString& stage, const LibraryCatalogue::Item& item, Error* error)
{
    const auto target = pathWithin(stage, item.fileName, error);
    if (!target)
        return false;
    if (!m_ownsFilesFolder)
        return true;
    const QString source = m_staging.filePathInFilesFolder(item.sourceFile);
    if (!m_isResumed)
        return moveItem(source, *target, error);
    const ManifestSources::Source checked = m_sources->check(source);
    const bool isThere = fileExistsAtPath(*target);
    if (checked.state != ManifestSources::State::Whole) {
        setError(error, checked.error);
        return isThere;
    }
    if (!isThere)
        return moveItem(source, *target, error);
    // A copy to another file system was complete, but its source still stood.
    const QString leftover = m_staging.filePathInFilesFolder(ImportStaging::newName());
    if (moveItem(source, leftover))
        static_cast<void>(removeItem(leftover));
    return true;
}

bool LibraryImport::publish(const QString& stage, const QString& name, Error* error)
{
    for (;;) {
        const QString path = m_library + QLatin1Char('/') + m_names.takeFreeName(name);
        Error failure;
        if (moveItem(stage, path, &failure)) {
            m_finishedFolders += path;
            return true;
        }
        if (failure.code() != FileWriteFileExistsError) {
            setError(error, failure);
            return false;
        }
    }
}

} // namespace platform
