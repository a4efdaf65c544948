// SPDX-License-Identifier: MIT
#include "tools/LibraryDestination.h"

#include "platform/core/StandardDirectories.h"
#include "platform/files/FileManager.h"
#include "platform/scripting/EmbeddedLibrary.h"
#include "platform/scripting/EmbeddedScriptingBridge.h"
#include "platform/scripting/LibraryCatalogue.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "platform/scripting/QuilleryLibraryError.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <sys/stat.h>

namespace {

// The same for every way in which a path can be written, whether the folder is there yet or not.
QString canonicalPath(const QString& path)
{
    QString existing = path;
    while (existing.size() > 1 && !QFileInfo::exists(existing))
        existing = QFileInfo(existing).path();
    const QString canonical = QFileInfo(existing).canonicalFilePath();
    return QDir::cleanPath(canonical + QLatin1Char('/') + path.mid(existing.size()));
}

// Half of a SHA-256 is more than enough to tell the libraries of one user apart.
QString temporaryNameFor(const QString& library)
{
    const QByteArray path = canonicalPath(library).toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().first(32);
    return QStringLiteral("Library-") + QString::fromLatin1(hash);
}

// In a folder in which nobody else can write.
bool makePrivateFolder(const QString& path)
{
    if (mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0)
        return true;
    const QFileInfo info(path);
    return errno == EEXIST && info.isDir() && !info.isSymLink();
}

quint64 itemsIn(const QStringList& folders)
{
    quint64 items = 0;
    for (const QString& folder : folders) {
        if (const auto catalogue = platform::LibraryCatalogue::read(folder))
            items += catalogue->items.size();
        else
            items += QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size();
    }
    return items;
}

bool isItemsNotTaken(const platform::Error& error)
{
    return error.code() == static_cast<qint64>(platform::QuilleryLibraryErrorCode::ItemsNotTaken);
}

bool isSame(const platform::FailedImportItem& left, const platform::FailedImportItem& right)
{
    return left.name == right.name && left.path == right.path && left.error == right.error;
}

} // namespace

LibraryDestination::LibraryDestination(const QString& directory)
    : m_library(std::make_shared<RunLibrary>(
          directory.isEmpty() ? platform::embeddedLibraryFolder() : directory))
{
}

ImportDestination::Readiness LibraryDestination::prepare(const QStringList&, QString* problem)
{
    if (!lockTemporaryFolder(problem))
        return Readiness::Failure;
    finishInterruptedImports();
    return Readiness::Ready;
}

bool LibraryDestination::lockTemporaryFolder(QString* problem)
{
    const QString base = platform::StandardDirectories::temporary();
    m_temporary = base + QLatin1Char('/') + temporaryNameFor(m_library->directory());
    if (base.isEmpty() || !makePrivateFolder(m_temporary)) {
        *problem = QStringLiteral("There is no private temporary folder, and none can be made.");
        return false;
    }
    return m_lock.acquire(m_temporary, m_library->directory(), problem);
}

void LibraryDestination::finishInterruptedImports()
{
    platform::Error error;
    const bool isFinished = m_library->finishInterruptedImports(&error);
    m_earlierImport.places = m_library->lastImportedFolders();
    m_earlierImport.items = itemsIn(m_earlierImport.places);
    m_earlierImport.skipped = itemsNotTaken();
    if (isFinished || isItemsNotTaken(error))
        return;
    m_earlierImport.error = error;
    m_earlierFailures = m_library->lastFailedItems();
}

std::vector<ImportReport::SkippedNote> LibraryDestination::itemsNotTaken() const
{
    const std::vector<platform::FailedImportItem>& failures = m_library->lastFailedItems();
    // What waits in the library is tried, and its failures are told, before anything new.
    const bool repeatsEarlier = failures.size() >= m_earlierFailures.size()
                                && std::equal(m_earlierFailures.begin(), m_earlierFailures.end(),
                                              failures.begin(), isSame);
    std::vector<ImportReport::SkippedNote> skipped;
    for (size_t index = repeatsEarlier ? m_earlierFailures.size() : 0; index < failures.size(); ++index)
        skipped.push_back({failures[index].name, failures[index].error});
    return skipped;
}

std::shared_ptr<platform::ScriptingBridge> LibraryDestination::bridge()
{
    return std::make_shared<platform::EmbeddedScriptingBridge>(m_library);
}

RunDirectories LibraryDestination::directories()
{
    RunDirectories directories = RunDirectories::standard();
    directories.temporary = m_temporary;
    return directories;
}

QStringList LibraryDestination::finishRun(RunOutcome& outcome)
{
    const std::optional<RunLibrary::Import> import = m_library->takeImport();
    if (!import) {
        // What the run laid out is of no use to anybody, and the next run here may be far away.
        static_cast<void>(platform::removeItem(directories().filesPathFor(platform::quillery::identifier)));
        return {};
    }
    const QStringList places = m_library->lastImportedFolders();
    const std::vector<ImportReport::SkippedNote> notTaken = itemsNotTaken();
    if (import->error) {
        // Those of an earlier import; of this one all were taken.
        const bool onlyEarlierFailed = isItemsNotTaken(*import->error) && notTaken.empty();
        outcome.end = onlyEarlierFailed ? RunOutcome::End::Imported : RunOutcome::End::Failed;
        outcome.error = onlyEarlierFailed ? std::nullopt : import->error;
        outcome.itemsTaken = std::min(outcome.report.items, itemsIn(places));
    }
    outcome.report.skipped.insert(outcome.report.skipped.end(), notTaken.begin(), notTaken.end());
    return places;
}
