// SPDX-License-Identifier: MIT
#include "platform/scripting/ImportStaging.h"

#include "platform/core/SystemLog.h"
#include "platform/core/Uuid.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyList.h"

#include <QSet>

namespace platform {

namespace {

const QString namePrefix = QStringLiteral(".importing-");
const QString journalName = QStringLiteral("/Import.plist");
const QString manifestPathKey = QStringLiteral("Manifest");
const QString filesFolderKey = QStringLiteral("FilesFolder");
const QString removesFilesFolderKey = QStringLiteral("RemovesFilesFolder");
const QString expectedEntriesKey = QStringLiteral("ExpectedEntries");
const QString failedItemsKey = QStringLiteral("FailedItems");
const QString nameKey = QStringLiteral("Name");
const QString pathKey = QStringLiteral("Path");
const QString errorDomainKey = QStringLiteral("ErrorDomain");
const QString errorCodeKey = QStringLiteral("ErrorCode");
const QString errorTextKey = QStringLiteral("ErrorText");

constexpr QDir::Filters everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

} // namespace

QStringList ImportStaging::namesIn(const QString& library)
{
    return QDir(library).entryList({namePrefix + QLatin1Char('*')},
                                   QDir::Dirs | QDir::Hidden | QDir::NoSymLinks, QDir::Name);
}

QString ImportStaging::newName() { return namePrefix + newUuidString(); }

ImportStaging::ImportStaging(const QString& library, const QString& name)
    : m_name(name)
    , m_path(library + QLatin1Char('/') + name)
{
}

bool ImportStaging::create(const Journal& journal, const std::vector<LibraryCatalogue>& catalogues,
                           Error* error)
{
    if (!createDirectory(m_path, IntermediateFolders::Require, error))
        return false;
    m_journal = journal;
    // The journal comes last: with it the import counts as begun.
    if (fill(catalogues, error) && writeFile(filePathInFilesFolder(m_name), {}, WriteOption::Plain, error)
        && writeJournal(error))
        return true;
    removeMarker();
    remove();
    return false;
}

bool ImportStaging::fill(const std::vector<LibraryCatalogue>& catalogues, Error* error) const
{
    size_t number = 0;
    for (const LibraryCatalogue& catalogue : catalogues) {
        const QString stage = stagePath(number++);
        if (!createDirectory(stage, IntermediateFolders::Require, error) || !catalogue.write(stage, error))
            return false;
    }
    return true;
}

bool ImportStaging::writeJournal(Error* error) const
{
    QVariantList failedItems;
    for (const FailedImportItem& item : m_journal->failedItems) {
        failedItems += QVariantMap{{nameKey, item.name},
                                   {pathKey, item.path},
                                   {errorDomainKey, item.error.domain()},
                                   {errorCodeKey, item.error.code()},
                                   {errorTextKey, item.error.localizedDescription()}};
    }
    const QVariantMap values = {{manifestPathKey, m_journal->manifestPath},
                                {filesFolderKey, m_journal->filesFolder},
                                {removesFilesFolderKey, m_journal->removesFilesFolder},
                                {expectedEntriesKey, m_journal->expectedEntries},
                                {failedItemsKey, failedItems}};
    const auto bytes = propertyListData(values, PropertyListFormat::Binary, error);
    return bytes && writeFile(m_path + journalName, *bytes, WriteOption::Atomic, error);
}

void ImportStaging::readJournal()
{
    const auto bytes = readFile(m_path + journalName);
    const auto list = bytes ? propertyListFromData(*bytes) : std::nullopt;
    if (!list)
        return;
    const QVariantMap values = list->toMap();
    Journal journal;
    journal.manifestPath = values.value(manifestPathKey).toString();
    journal.filesFolder = values.value(filesFolderKey).toString();
    journal.removesFilesFolder = values.value(removesFilesFolderKey).toBool();
    for (const QVariant& entry : values.value(expectedEntriesKey).toList())
        journal.expectedEntries += entry.toString();
    for (const QVariant& entry : values.value(failedItemsKey).toList()) {
        const QVariantMap item = entry.toMap();
        const Error error(item.value(errorDomainKey).toString(), item.value(errorCodeKey).toLongLong(),
                          item.value(errorTextKey).toString());
        journal.failedItems.push_back(
            {item.value(nameKey).toString(), item.value(pathKey).toString(), error});
    }
    m_journal = journal;
}

void ImportStaging::noteFailedItems(const std::vector<FailedImportItem>& items)
{
    if (!m_journal)
        return;
    m_journal->failedItems = items;
    // On a full disk the journal stays as it was; without the marker it has no files folder either.
    if (!writeJournal(nullptr))
        removeMarker();
}

QStringList ImportStaging::stagePaths() const
{
    QStringList names = QDir(m_path).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    std::sort(names.begin(), names.end(),
              [](const QString& left, const QString& right) { return left.toInt() < right.toInt(); });
    for (QString& name : names)
        name.prepend(m_path + QLatin1Char('/'));
    return names;
}

QString ImportStaging::filePathInFilesFolder(const QString& name) const
{
    return m_journal->filesFolder + QLatin1Char('/') + name;
}

bool ImportStaging::hasMarker() const
{
    const QFileInfo marker(m_journal ? filePathInFilesFolder(m_name) : QString());
    return m_journal && marker.isFile() && !marker.isSymLink();
}

void ImportStaging::removeMarker()
{
    if (hasMarker())
        static_cast<void>(removeItem(filePathInFilesFolder(m_name)));
}

void ImportStaging::removeFilesFolder()
{
    QStringList entries = QDir(m_journal->filesFolder).entryList(everything);
    entries.removeOne(m_name);
    const QSet<QString> expected(m_journal->expectedEntries.begin(), m_journal->expectedEntries.end());
    for (const QString& entry : std::as_const(entries)) {
        // The marker of an import that was interrupted before it began is nobody's.
        if (!expected.contains(entry) && !entry.startsWith(namePrefix)) {
            systemLog(QStringLiteral("The files folder stays, because it also holds %1")
                          .arg(filePathInFilesFolder(entry)));
            removeMarker();
            return;
        }
    }
    // While the marker is there, an interrupted removal is finished by the next import.
    Error error;
    for (const QString& entry : std::as_const(entries)) {
        if (!removeItem(filePathInFilesFolder(entry), &error)) {
            systemLog(QStringLiteral("The files folder could not be removed: %1").arg(error.description()));
            removeMarker();
            return;
        }
    }
    removeMarker();
    if (!removeItem(m_journal->filesFolder, &error))
        systemLog(QStringLiteral("The files folder could not be removed: %1").arg(error.description()));
}

void ImportStaging::remove()
{
    Error error;
    if (!removeItem(m_path, &error))
        systemLog(
            QStringLiteral("What is left of an import could not be removed: %1").arg(error.description()));
}

} // namespace platform
