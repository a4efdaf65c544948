// SPDX-License-Identifier: MIT
#include "tools/FilesFolderDestination.h"

#include "platform/files/FileManager.h"
#include "platform/scripting/EmbeddedScriptingBridge.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/QuilleryFilesFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QString asidePrefix = QStringLiteral(".vupuge-import-");
// In the folder aside.
const QString joinedLogs = QStringLiteral("Logs");

constexpr QDir::Filters everything =
    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

} // namespace

FilesFolderDestination::FilesFolderDestination(const QString& directory)
    : m_directory(directory)
{
}

QString FilesFolderDestination::filesPath() const
{
    return m_directory + QStringLiteral("/Evernote");
}

QString FilesFolderDestination::logPath() const
{
    return m_directory + QStringLiteral("/Evernote Export.log");
}

// A run that succeeded leaves its manifest; one that was stopped before there was one leaves the
// folders of its notebooks and, beside them, its log.
bool FilesFolderDestination::madeByAnEarlierRun() const
{
    const QFileInfo folder(filesPath());
    if (folder.isSymLink() || !folder.isDir())
        return false;
    if (QFileInfo(filesPath() + QLatin1Char('/') + platform::manifest::fileName).isFile())
        return true;
    const QFileInfoList entries = QDir(filesPath()).entryInfoList(everything);
    if (entries.isEmpty())
        return true;
    const auto isFolder = [](const QFileInfo& entry) {
        return entry.isDir() && !entry.isSymLink();
    };
    return QFileInfo(logPath()).isFile() && std::all_of(entries.begin(), entries.end(), isFolder);
}

bool FilesFolderDestination::mayBeReplaced(QString* problem) const
{
    if (!platform::fileExistsAtPath(filesPath()) || madeByAnEarlierRun())
        return true;
    *problem = QStringLiteral("%1 is there already and was not made by an earlier import; it would "
                              "be replaced. Choose another folder.")
                   .arg(filesPath());
    return false;
}

ImportDestination::Readiness FilesFolderDestination::prepare(const QStringList& files,
                                                             QString* problem)
{
    if (!mayBeReplaced(problem))
        return Readiness::WrongUsage;
    const QString inside = QFileInfo(filesPath()).canonicalFilePath() + QLatin1Char('/');
    for (const QString& file : files) {
        if (inside.size() > 1 && QFileInfo(file).canonicalFilePath().startsWith(inside)) {
            *problem =
                QStringLiteral("%1 lies in %2, which would be replaced. Choose another folder.")
                    .arg(file, filesPath());
            return Readiness::WrongUsage;
        }
    }
    platform::Error error;
    if (!platform::createDirectory(m_directory, platform::IntermediateFolders::Create, &error)) {
        *problem = error.localizedDescription();
        return Readiness::Failure;
    }
    m_joinsLogs = files.size() > 1;
    removeWhatKilledRunsLeft();
    return makeAside(problem) ? Readiness::Ready : Readiness::Failure;
}

void FilesFolderDestination::removeWhatKilledRunsLeft() const
{
    const QStringList names = QDir(m_directory)
                                  .entryList({asidePrefix + QLatin1Char('*')},
                                             QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& name : names) {
        const QString folder = m_directory + QLatin1Char('/') + name;
        FilesFolderLock lock;
        QString problem;
        // One without a lock is not ours, or not yet; one with a lock that can be had is nobody's
        // any more.
        if (!FilesFolderLock::isIn(folder) || !lock.acquire(folder, m_directory, &problem))
            continue;
        lock.release();
        static_cast<void>(platform::removeItem(folder));
    }
}

bool FilesFolderDestination::makeAside(QString* problem)
{
    // A name that nothing had before: whatever lies there is this import's.
    m_aside = std::make_unique<QTemporaryDir>(m_directory + QLatin1Char('/') + asidePrefix +
                                              QStringLiteral("XXXXXX"));
    if (!m_aside->isValid()) {
        *problem = QStringLiteral("%1: %2").arg(m_directory, m_aside->errorString());
        return false;
    }
    m_merge = std::make_unique<FilesFolderMerge>(m_aside->filePath(QStringLiteral("Together")),
                                                 filesPath());
    return m_lock.acquire(m_aside->path(), m_directory, problem);
}

std::shared_ptr<platform::ScriptingBridge> FilesFolderDestination::bridge()
{
    const auto quillery = std::make_shared<platform::QuilleryFilesFolder>();
    return std::make_shared<platform::EmbeddedScriptingBridge>(quillery);
}

RunDirectories FilesFolderDestination::directories()
{
    RunDirectories directories = RunDirectories::standard();
    directories.temporary = m_aside->path();
    directories.log = m_directory;
    return directories;
}

QStringList FilesFolderDestination::finishRun(RunOutcome& outcome)
{
    if (m_joinsLogs)
        keepLog();
    const QString laidOut = m_aside->filePath(QStringLiteral("Evernote"));
    platform::Error error;
    if (outcome.end == RunOutcome::End::Imported &&
        !m_merge->add(*outcome.manifest, laidOut, &error)) {
        outcome.end = RunOutcome::End::Failed;
        outcome.error = error;
    }
    static_cast<void>(platform::removeItem(laidOut));
    return {};
}

bool FilesFolderDestination::finish(QStringList* places, platform::Error* error)
{
    if (!m_aside)
        return true;
    if (m_joinsLogs)
        putLogsInPlace();
    if (m_merge->isEmpty())
        return true;
    if (!putInPlace(error))
        return false;
    *places += filesPath();
    return true;
}

bool FilesFolderDestination::putInPlace(platform::Error* error) const
{
    if (!m_merge->writeManifest(error))
        return false;
    // Much may have happened since the runs began.
    QString problem;
    if (!mayBeReplaced(&problem)) {
        platform::setError(
            error, {platform::cocoaErrorDomain, platform::FileWriteFileExistsError, problem});
        return false;
    }
    // Two renames, so that there is hardly a moment with neither the one nor the other.
    const QString replaced = m_aside->filePath(QStringLiteral("Replaced"));
    const bool replaces = platform::fileExistsAtPath(filesPath());
    if (replaces && !platform::moveItem(filesPath(), replaced, error))
        return false;
    const bool isInPlace = platform::moveItem(m_merge->directory(), filesPath(), error);
    if (replaces && isInPlace)
        static_cast<void>(platform::removeItem(replaced));
    else if (replaces)
        static_cast<void>(platform::moveItem(replaced, filesPath()));
    return isInPlace;
}

void FilesFolderDestination::keepLog() const
{
    constexpr qint64 pieceLength = 64 * 1024;
    QFile log(logPath());
    QFile joined(m_aside->filePath(joinedLogs));
    if (!log.open(QIODevice::ReadOnly) || !joined.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    while (!log.atEnd() && joined.write(log.read(pieceLength)) > 0) {
    }
}

void FilesFolderDestination::putLogsInPlace() const
{
    const QString joined = m_aside->filePath(joinedLogs);
    if (QFileInfo::exists(joined) && platform::removeItem(logPath()))
        static_cast<void>(platform::moveItem(joined, logPath()));
}
