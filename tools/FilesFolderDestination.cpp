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

QString FilesFolderDestination::logPath() const { return m_directory + QStringLiteral("/Evernote Export.log"); }

QString FilesFolderDestination::asidePath() const { return m_directory + QStringLiteral("/.vupuge-import"); }

// A run leaves its log beside the files folder, also one that failed.
bool FilesFolderDestination::madeByAnEarlierRun() const
{
    return QFileInfo::exists(filesPath() + QLatin1Char('/') + platform::manifest::fileName)
           || QFileInfo::exists(logPath()) || QDir(filesPath()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

ImportDestination::Readiness FilesFolderDestination::prepare(const ImportOptions& options, QString* problem)
{
    m_severalFiles = options.files.size() > 1;
    if (platform::fileExistsAtPath(filesPath()) && !madeByAnEarlierRun()) {
        *problem = QStringLiteral("%1 is there already and was not made by an earlier import; it would be replaced. "
                                  "Choose another folder.")
                       .arg(filesPath());
        return Readiness::WrongUsage;
    }
    const QString inside = QFileInfo(filesPath()).canonicalFilePath() + QLatin1Char('/');
    for (const QString& file : options.files) {
        if (inside.size() > 1 && QFileInfo(file).canonicalFilePath().startsWith(inside)) {
            *problem = QStringLiteral("%1 lies in %2, which would be replaced. Choose another folder.").arg(file, filesPath());
            return Readiness::WrongUsage;
        }
    }
    platform::Error error;
    if (!platform::createDirectory(m_directory, platform::IntermediateFolders::Create, &error)) {
        *problem = error.localizedDescription();
        return Readiness::Failure;
    }
    if (m_severalFiles && platform::fileExistsAtPath(filesPath()) && !platform::removeItem(filesPath(), &error)) {
        *problem = error.localizedDescription();
        return Readiness::Failure;
    }
    return Readiness::Ready;
}

std::shared_ptr<platform::ScriptingBridge> FilesFolderDestination::bridge()
{
    return std::make_shared<platform::EmbeddedScriptingBridge>(std::make_shared<platform::QuilleryFilesFolder>());
}

RunDirectories FilesFolderDestination::directories()
{
    RunDirectories directories = RunDirectories::standard();
    directories.temporary = m_severalFiles ? asidePath() : m_directory;
    directories.log = m_directory;
    return directories;
}

QStringList FilesFolderDestination::finishRun(RunOutcome& outcome)
{
    if (m_severalFiles) {
        // Each run begins its log anew; together they are the log of this import.
        m_logs += platform::readFile(logPath()).value_or(QByteArray());
        static_cast<void>(platform::writeFile(logPath(), m_logs, platform::WriteOption::Atomic));
        platform::Error error;
        if (outcome.end == RunOutcome::End::Imported
            && !mergeFilesFolder(asidePath() + QStringLiteral("/Evernote"), filesPath(), &error)) {
            outcome.end = RunOutcome::End::Failed;
            outcome.error = error;
        }
        static_cast<void>(platform::removeItem(asidePath()));
    }
    return outcome.end == RunOutcome::End::Imported ? QStringList(filesPath()) : QStringList();
}
