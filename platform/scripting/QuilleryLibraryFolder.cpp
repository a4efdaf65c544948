// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryLibraryFolder.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/core/PathUtilities.h"
#include "platform/core/SystemLog.h"
#include "platform/files/FileManager.h"
#include "platform/scripting/LibraryImport.h"
#include "platform/scripting/LibraryLock.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "platform/scripting/QuilleryLibraryError.h"

namespace platform {

namespace {

using Code = QuilleryLibraryErrorCode;

Error notWritable(const QString& directory, const Error& cause)
{
    const QString text = localizedString("Nothing could be imported into \u201c%1\u201d: %2");
    return quilleryLibraryError(Code::LibraryNotWritable, text.arg(directory, cause.localizedDescription()),
                                cause);
}

LibraryNames namesIn(const QString& directory)
{
    LibraryNames names;
    const QStringList entries
        = QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries)
        names.insert(entry);
    return names;
}

// As far as the path exists: the files folder may have been removed by the import that is asked for again.
QString canonicalPath(const QString& path)
{
    QString existing = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QString rest;
    while (existing.size() > 1 && !QFileInfo::exists(existing)) {
        const qsizetype separator = existing.lastIndexOf(QLatin1Char('/'));
        rest.prepend(existing.mid(separator));
        existing.truncate(separator);
    }
    const QString canonical = existing.isEmpty() ? existing : QFileInfo(existing).canonicalFilePath();
    return canonical + rest;
}

} // namespace

QuilleryLibraryFolder::QuilleryLibraryFolder(const QString& directory)
    : m_directory(QDir::cleanPath(QFileInfo(directory).absoluteFilePath()))
{
}

QString QuilleryLibraryFolder::version() { return quillery::embeddedVersion; }

bool QuilleryLibraryFolder::importFiles(const QStringList& paths, ImportMode, const QString& to,
                                        int withRating, const QString& withComments, int withLabel,
                                        const QStringList& withTags, Error* error)
{
    m_lastImportedFolders.clear();
    m_lastFailedItems.clear();
    if (!to.isEmpty() || withRating != 0 || !withComments.isEmpty() || withLabel != 0
        || !withTags.isEmpty()) {
        setError(error, quilleryLibraryError(
                            Code::UnsupportedOption,
                            localizedString(
                                "A library folder takes no destination, rating, comments, label or tags.")));
        return false;
    }
    Error cause;
    if (!createDirectory(m_directory, IntermediateFolders::Create, &cause)) {
        setError(error, notWritable(m_directory, cause));
        return false;
    }
    const LibraryLock lock(m_directory);
    return importLocked(paths, error);
}

bool QuilleryLibraryFolder::importLocked(const QStringList& paths, Error* error)
{
    LibraryNames names = namesIn(m_directory);
    QStringList due;
    for (const QString& path : paths)
        due += canonicalPath(path);
    QStringList handledManifests;
    Error interruption;
    if (!finishInterrupted(names, handledManifests, &interruption)) {
        const auto isHandled = [&](const QString& path) {
            return handledManifests.contains(path);
        };
        if (paths.isEmpty() || std::any_of(due.begin(), due.end(), isHandled)) {
            setError(error, interruption);
            return false;
        }
        // Another import must not keep this one from its place.
        systemLog(interruption.description());
    }

    // All are checked before any is carried out.
    std::vector<LibraryManifest> manifests;
    const QString library = QFileInfo(m_directory).canonicalFilePath() + QLatin1Char('/');
    for (qsizetype index = 0; index < paths.size(); ++index) {
        if (handledManifests.contains(due[index]))
            continue;
        auto manifest = LibraryManifest::read(paths[index], error);
        if (!manifest)
            return false;
        if (library.startsWith(manifest->filesFolder() + QLatin1Char('/'))) {
            const QString text = localizedString("The library \u201c%1\u201d lies in the files folder.");
            setError(error, quilleryLibraryError(Code::UnsafeManifest, text.arg(m_directory)));
            return false;
        }
        manifests.push_back(std::move(*manifest));
    }
    for (LibraryManifest& manifest : manifests) {
        LibraryImport import(m_directory, names);
        Error cause;
        if (!import.begin(manifest, &cause)) {
            setError(error, notWritable(m_directory, cause));
            return false;
        }
        if (!finish(import, error))
            return false;
    }
    return reportFailedItems(error);
}

bool QuilleryLibraryFolder::finishInterruptedImports(Error* error)
{
    m_lastImportedFolders.clear();
    m_lastFailedItems.clear();
    // With nothing to finish there is no need to wait for another program's import.
    if (ImportStaging::namesIn(m_directory).isEmpty())
        return true;
    const LibraryLock lock(m_directory);
    return importLocked({}, error);
}

bool QuilleryLibraryFolder::finishInterrupted(LibraryNames& names, QStringList& handledManifests,
                                              Error* error)
{
    bool isFinished = true;
    const QStringList stagings = ImportStaging::namesIn(m_directory);
    for (const QString& staging : stagings) {
        LibraryImport import(m_directory, names);
        import.resume(staging);
        // Without its files folder, a manifest at the same path is another one.
        if (import.ownsFilesFolder() || !fileExistsAtPath(import.manifestPath()))
            handledManifests += import.manifestPath();
        isFinished = finish(import, error) && isFinished;
    }
    return isFinished;
}

bool QuilleryLibraryFolder::finish(LibraryImport& import, Error* error)
{
    Error cause;
    const bool isFinished = import.finish(&cause);
    m_lastImportedFolders += import.finishedFolders();
    m_lastFailedItems.insert(m_lastFailedItems.end(), import.failedItems().begin(),
                             import.failedItems().end());
    if (!isFinished) {
        const QString text = localizedString(
            "The import into \u201c%1\u201d could not be finished; the next one will do so: %2");
        setError(error, quilleryLibraryError(Code::UnfinishedImport,
                                             text.arg(m_directory, cause.localizedDescription()), cause));
    }
    return isFinished;
}

bool QuilleryLibraryFolder::reportFailedItems(Error* error) const
{
    if (m_lastFailedItems.empty())
        return true;
    const FailedImportItem& first = m_lastFailedItems.front();
    const QString reason = first.error.localizedDescription();
    const QString count = QString::number(m_lastFailedItems.size());
    const QString text
        = m_lastFailedItems.size() == 1
              ? localizedString("\u201c%1\u201d could not be imported: %2").arg(first.name, reason)
              : localizedString("%1 items could not be imported. The first is \u201c%2\u201d: %3")
                    .arg(count, first.name, reason);
    setError(error, quilleryLibraryError(Code::ItemsNotTaken, text, first.error));
    return false;
}

} // namespace platform
