// SPDX-License-Identifier: MIT
//
// What EvernoteExportOperation lays out: the files folder with the folders of the notebooks, and
// the log.
#include "foundation/BMXLogManager.h"
#include "foundation/FileNameFitting.h"
#include "import/EvernoteExportOperation.h"
#include "import/ExportErrors.h"
#include "platform/core/Bundle.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"
#include "platform/propertylist/PropertyListValue.h"

#include <cerrno>

using platform::Error;
using platform::localizedString;
using platform::UserDefaults;
using platform::manifest::Record;

namespace {

// How the platform writes a value that is not there.
const QString nilText = QStringLiteral("(null)");

} // namespace

Error EvernoteExportOperation::directoryError()
{
    return {evernoteExportErrorDomain, EvernoteExportErrorNoDirectory,
            localizedString("Unable to create the temporary directory to export files.")};
}

bool EvernoteExportOperation::prepareToExportWithAppIdentifier(const QString& identifier,
                                                               Error* error)
{
    m_filesPath = m_directories.filesPathFor(identifier);
    // Before there is a log, so this line reaches nobody.
    log(QStringLiteral("Exporting to directory: ") + m_filesPath);
    if (m_filesPath.isEmpty() ||
        (platform::fileExistsAtPath(m_filesPath) && !platform::removeItem(m_filesPath))) {
        platform::setError(error, directoryError());
        return false;
    }
    if (!platform::createDirectory(m_filesPath, platform::IntermediateFolders::Create))
        platform::setError(error, directoryError());
    m_heldSettings.emplace(UserDefaults::standard());
    m_libraryPlist = std::make_shared<ImportManifest>(m_filesPath);
    openLog(identifier);
    log(QStringLiteral("Vupuge %1 OS X %2")
            .arg(platform::Bundle::main().shortVersionString(),
                 platform::operatingSystemVersionString()));
    log(QStringLiteral("Quillery Version %1 Evernote Version %2")
            .arg(m_quilleryApp ? m_quilleryApp->version() : nilText,
                 m_evernoteApp ? m_evernoteApp->version() : nilText));
    return true;
}

void EvernoteExportOperation::openLog(const QString& identifier)
{
    const QString folder = m_directories.logFolderFor(identifier);
    const QString path = folder + QStringLiteral("/Evernote Export.log");
    static_cast<void>(platform::createDirectory(folder, platform::IntermediateFolders::Create));
    static_cast<void>(platform::removeItem(path));
    m_logStream =
        std::make_shared<platform::OutputStream>(path, platform::OutputStream::Mode::Append);
    // A run without a log is still a run.
    static_cast<void>(m_logStream->open());
    m_redirection = BMXLogManager::sharedManager().redirectStandardErrorToFileAtPath(path);
}

Record EvernoteExportOperation::makeNotebookFolder(const QString& name, QString* folderPath,
                                                   Error* error)
{
    const QString folderName = fileNameFittingBytes(
        platform::repairedText(name, platform::TextRepair::ForXml), platform::maximumFileNameBytes);
    std::optional<QString> path = platform::pathWithin(m_filesPath, folderName, error);
    *folderPath = path.value_or(m_filesPath + QLatin1Char('/') + folderName);
    if (folderName.compare(platform::manifest::fileName, Qt::CaseInsensitive) == 0) {
        // The manifest's own place.
        platform::setError(error,
                           platform::fileError(platform::FileAccess::Write, *folderPath, EEXIST));
        path.reset();
    }
    if (!path || !platform::createDirectory(*path, platform::IntermediateFolders::Require, error))
        return nullptr;
    Record folder = ImportManifest::newFolderRecord(folderName);
    m_libraryPlist->addFolder(folder);
    log(QStringLiteral("Exporting notes"));
    return folder;
}

void EvernoteExportOperation::logUnableToCreate(const QString& folderPath, const Error& error)
{
    log(QStringLiteral("Unable to create notebook directory %1: %2")
            .arg(folderPath, error.description()));
}

bool EvernoteExportOperation::prepareToExportNotebook(const Notebook& notebook,
                                                      QString* notebookFilesPath,
                                                      Record* targetFolder, Error*)
{
    const QString name = notebook->name();
    QString folderPath;
    Error failure;
    const Record folder = makeNotebookFolder(fileNameFromTitle(name), &folderPath, &failure);
    if (!folder) {
        informDelegateDidEncounterError(directoryError());
        logUnableToCreate(folderPath, failure);
        return false;
    }
    *notebookFilesPath = folderPath;
    *targetFolder = folder;
    m_countedNotes = notebook->numberOfNotes();
    m_report.notes += m_countedNotes;
    informDelegateWillExportRecordsFromNotebook(m_countedNotes, name);
    return true;
}
