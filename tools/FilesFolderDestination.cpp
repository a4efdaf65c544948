// SPDX-License-Identifier: MIT
#include "tools/FilesFolderDestination.h"

#include "platform/files/FileManager.h"
#include "platform/scripting/EmbeddedScriptingBridge.h"
#include "platform/scripting/ImportManifest.h"
#include "platform/scripting/QuilleryFilesFolder.h"
#include "tools/FilesFolderMerge.h"

#include <QDir>
#include <QFileInfo>

FilesFolderDestination::FilesFolderDestination(const QString& directory)
    : m_directory(directory)
{
}

QString FilesFolderDestination::filesPath() const { return m_directory + QStringLiteral("/Evernote"); }

QString FilesFolderDestination::logPath() const
{
    return m_directory + QStringLiteral("/Evernote Export.log");
}

// A run that succeeded leaves its manifest; one that failed leaves the folders of its notebooks and, beside
// them, its log.
bool FilesFolderDestination::madeByAnEarlierRun() const
{
    const QFileInfo folder(filesPath());
    if (folder.isSymLink() || !folder.isDir())
        return false;
    if (QFileInfo(filesPath() + QLatin1Char('/') + platform::manifest::fileName).isFile())
        return true;
    const QFileInfoList entries = QDir(filesPath()).entryInfoList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    if (entries.isEmpty())
        return true;
    const auto isFolder = [](const QFileInfo& entry) { return entry.isDir() && !entry.isSymLink(); };
    return QFileInfo(logPath()).isFile() && std::all_of(entries.begin(), entries.end(), isFolder);
}

ImportDestination::Readiness FilesFolderDestination::prepare(const QStringList& files, QString* problem)
{
    if (platform::fileExistsAtPath(filesPath()) && !madeByAnEarlierRun()) {
        *problem = QStringLiteral("%1 is there already and was not made by an earlier import; it would be "
                                  "replaced. Choose another folder.")
                       .arg(filesPath());
        return Readiness::WrongUsage;
    }
    const QString inside = QFileInfo(filesPath()).canonicalFilePath() + QLatin1Char('/');
    for (const QString& file : files) {
        if (inside.size() > 1 && QFileInfo(file).canonicalFilePath().startsWith(inside)) {
            *problem = QStringLiteral("%1 lies in %2, which would be replaced. Choose another folder.")
                           .arg(file, filesPath());
            return Readiness::WrongUsage;
        }
    }
    platform::Error error;
    if (!platform::createDirectory(m_directory, platform::IntermediateFolders::Create, &error)
        || (files.size() > 1 && !prepareForSeveral(&error))) {
        *problem = error.localizedDescription();
        return Readiness::Failure;
    }
    return Readiness::Ready;
}

bool FilesFolderDestination::prepareForSeveral(platform::Error* error)
{
    // A name that nothing had before: whatever lies there is this import's.
    m_aside = std::make_unique<QTemporaryDir>(m_directory + QStringLiteral("/.vupuge-import-XXXXXX"));
    if (!m_aside->isValid()) {
        platform::setError(error, {platform::cocoaErrorDomain, platform::FileWriteUnknownError,
                                   QStringLiteral("%1: %2").arg(m_directory, m_aside->errorString())});
        return false;
    }
    return !platform::fileExistsAtPath(filesPath()) || platform::removeItem(filesPath(), error);
}

std::shared_ptr<platform::ScriptingBridge> FilesFolderDestination::bridge()
{
    const auto quillery = std::make_shared<platform::QuilleryFilesFolder>();
    return std::make_shared<platform::EmbeddedScriptingBridge>(quillery);
}

RunDirectories FilesFolderDestination::directories()
{
    RunDirectories directories = RunDirectories::standard();
    directories.temporary = m_aside ? m_aside->path() : m_directory;
    directories.log = m_directory;
    return directories;
}

QStringList FilesFolderDestination::finishRun(RunOutcome& outcome)
{
    if (m_aside)
        finishOneOfSeveral(outcome);
    return outcome.end == RunOutcome::End::Imported ? QStringList(filesPath()) : QStringList();
}

void FilesFolderDestination::finishOneOfSeveral(RunOutcome& outcome)
{
    // Each run begins its log anew; together they are the log of this import.
    m_logs += platform::readFile(logPath()).value_or(QByteArray());
    static_cast<void>(platform::writeFile(logPath(), m_logs, platform::WriteOption::Atomic));
    const QString laidOut = m_aside->filePath(QStringLiteral("Evernote"));
    platform::Error error;
    if (outcome.end == RunOutcome::End::Imported && !mergeFilesFolder(laidOut, filesPath(), &error)) {
        outcome.end = RunOutcome::End::Failed;
        outcome.error = error;
    }
    static_cast<void>(platform::removeItem(laidOut));
}
