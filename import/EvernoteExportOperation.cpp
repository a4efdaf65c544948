// SPDX-License-Identifier: MIT
#include "import/EvernoteExportOperation.h"

#include "convert/NoteDocument.h"
#include "foundation/BMXLogManager.h"
#include "foundation/OutputStreamBMExtensions.h"
#include "foundation/FileNameFitting.h"
#include "import/EvernoteHTMLExportOperation.h"
#include "import/EvernoteXMLExportOperation.h"
#include "import/ExportErrors.h"
#include "platform/core/Bundle.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/NumericText.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/files/FileManager.h"
#include "platform/scripting/QuilleryIdentifiers.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>

using platform::Error;
using platform::localizedString;
using platform::QuilleryApplication;
using platform::UserDefaults;
using platform::manifest::Record;

namespace {

// How the platform writes a value that is not there.
const QString nilText = QStringLiteral("(null)");

const std::array<QString, 2>& quilleryEditions()
{
    static const std::array<QString, 2> editions = {platform::quillery::identifier, platform::quillery::storeIdentifier};
    return editions;
}

// Any 3.x passes, the earliest too, although the text for the user names 3.5: people have imported into older
// ones for years. Without a dot there is no second number to look at, and the check fails.
bool isRecentEnough(const QString& version)
{
    const QStringList pieces = version.split(QLatin1Char('.'));
    if (pieces.size() < 2)
        return false;
    const qint64 major = platform::integerValue(pieces[0]);
    const qint64 minor = platform::integerValue(pieces[1]);
    const qint64 patch = pieces.size() > 2 ? platform::integerValue(pieces[2]) : 0;
    return !(major < 3 || (major == 3 && minor == 5 && patch < 0));
}

} // namespace

std::shared_ptr<EvernoteExportOperation>
EvernoteExportOperation::exportOperationForApp(const std::shared_ptr<platform::EvernoteApplication>& app,
                                               const std::vector<Notebook>& notebooks,
                                               EvernoteExportOperationDelegate* delegate)
{
    std::shared_ptr<EvernoteExportOperation> operation;
    if (UserDefaults::standard().boolForKey(QStringLiteral("UseHTMLExport")))
        operation = std::make_shared<EvernoteHTMLExportOperation>();
    else
        operation = std::make_shared<EvernoteXMLExportOperation>();
    operation->setEvernoteApp(app);
    operation->setNotebooks(notebooks);
    operation->setDelegate(delegate);
    return operation;
}

EvernoteExportOperation::EvernoteExportOperation()
{
    UserDefaults& defaults = UserDefaults::standard();
    for (const QString& edition : quilleryEditions())
        defaults.addSuiteNamed(edition);
    const platform::Font font = NoteDocument::bodyFont();
    m_textImportOptions.standardFontFamily = font.family;
    m_textImportOptions.defaultFontSize = std::trunc(font.size);
    m_debugMode = defaults.boolForKey(QStringLiteral("ExportDebug"));
}

EvernoteExportOperation::~EvernoteExportOperation()
{
    // A run that was cancelled before it could end has not given it back.
    if (m_logStream)
        BMXLogManager::sharedManager().restoreStandardError();
}

void EvernoteExportOperation::log(const QString& line) { writeLogLine(m_logStream.get(), line); }

std::shared_ptr<QuilleryApplication> EvernoteExportOperation::findQuillery(QString* identifier)
{
    if (!m_scriptingBridge)
        return nullptr;
    for (const QString& edition : quilleryEditions()) {
        if (!m_scriptingBridge->isRunning(edition))
            continue;
        if (auto application = m_scriptingBridge->runningQuillery(edition)) {
            *identifier = edition;
            return application;
        }
        break;
    }
    for (const QString& edition : quilleryEditions()) {
        if (auto application = m_scriptingBridge->installedQuillery(edition)) {
            *identifier = edition;
            return application;
        }
    }
    return nullptr;
}

std::optional<QString> EvernoteExportOperation::getQuilleryApplicationBundleIdentifier(Error* error)
{
    QString identifier;
    std::shared_ptr<QuilleryApplication> application = findQuillery(&identifier);
    if (!application) {
        platform::setError(error, Error(evernoteExportErrorDomain, EvernoteExportErrorNoQuillery,
                                        localizedString("Quillery app not found.")));
        return std::nullopt;
    }
    if (!isRecentEnough(application->version())) {
        platform::setError(error, Error(evernoteExportErrorDomain, EvernoteExportErrorQuilleryTooOld,
                                        localizedString("Quillery 3.5 or later is required.")));
        return std::nullopt;
    }
    m_quilleryApp = std::move(application);
    return identifier;
}

Error EvernoteExportOperation::directoryError()
{
    return {evernoteExportErrorDomain, EvernoteExportErrorNoDirectory,
            localizedString("Unable to create the temporary directory to export files.")};
}

bool EvernoteExportOperation::prepareToExportWithAppIdentifier(const QString& identifier, Error* error)
{
    m_filesPath = m_directories.filesPathFor(identifier);
    // Before there is a log, so this line reaches nobody.
    log(QStringLiteral("Exporting to directory: ") + m_filesPath);
    if (m_filesPath.isEmpty()
        || (platform::fileExistsAtPath(m_filesPath) && !platform::removeItem(m_filesPath))) {
        platform::setError(error, directoryError());
        return false;
    }
    if (!platform::createDirectory(m_filesPath, platform::IntermediateFolders::Create))
        platform::setError(error, directoryError());
    m_libraryPlist = std::make_shared<ImportManifest>(m_filesPath);
    openLog(identifier);
    log(QStringLiteral("Vupuge %1 OS X %2")
            .arg(platform::Bundle::main().shortVersionString(), platform::operatingSystemVersionString()));
    log(QStringLiteral("Quillery Version %1 Evernote Version %2")
            .arg(m_quilleryApp ? m_quilleryApp->version() : nilText, m_evernoteApp ? m_evernoteApp->version() : nilText));
    return true;
}

void EvernoteExportOperation::openLog(const QString& identifier)
{
    const QString folder = m_directories.logFolderFor(identifier);
    const QString path = folder + QStringLiteral("/Evernote Export.log");
    static_cast<void>(platform::createDirectory(folder, platform::IntermediateFolders::Create));
    static_cast<void>(platform::removeItem(path));
    m_logStream = std::make_shared<platform::OutputStream>(path, platform::OutputStream::Mode::Append);
    // A run without a log is still a run.
    static_cast<void>(m_logStream->open());
    BMXLogManager::sharedManager().redirectStandardErrorToFileAtPath(path);
}

Record EvernoteExportOperation::makeNotebookFolder(const QString& name, QString* folderPath, Error* error)
{
    std::optional<QString> path = platform::pathWithin(m_filesPath, name, error);
    *folderPath = path.value_or(m_filesPath + QLatin1Char('/') + name);
    if (name.compare(platform::manifest::fileName, Qt::CaseInsensitive) == 0) {
        // The manifest's own place.
        platform::setError(error, platform::fileError(platform::FileAccess::Write, *folderPath, EEXIST));
        path.reset();
    }
    if (!path || !platform::createDirectory(*path, platform::IntermediateFolders::Require, error))
        return nullptr;
    Record folder = ImportManifest::newFolderRecord(name);
    m_libraryPlist->addFolder(folder);
    log(QStringLiteral("Exporting notes"));
    return folder;
}

void EvernoteExportOperation::logUnableToCreate(const QString& folderPath, const Error& error)
{
    log(QStringLiteral("Unable to create notebook directory %1: %2").arg(folderPath, error.description()));
}

bool EvernoteExportOperation::prepareToExportNotebook(const Notebook& notebook, QString* notebookFilesPath,
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
    informDelegateWillExportRecordsFromNotebook(notebook->notes().size(), name);
    return true;
}

void EvernoteExportOperation::main()
{
    Error error;
    const std::optional<QString> identifier = getQuilleryApplicationBundleIdentifier(&error);
    if (!identifier || !prepareToExportWithAppIdentifier(*identifier, &error)) {
        informDelegateDidEncounterError(error);
        return;
    }
    if (m_notebooks.empty())
        finishRun();
    else
        exportNoteBook(m_notebooks.front());
}

void EvernoteExportOperation::exportNoteBook(const Notebook& notebook)
{
    log(QStringLiteral("*** Export started for notebook: ") + notebook->name());
    QString folderPath;
    Record folder;
    if (prepareToExportNotebook(notebook, &folderPath, &folder))
        performExportForNotebook(notebook, folderPath, folder);
    else
        stopRun(std::nullopt);
}

void EvernoteExportOperation::performExportForNotebook(const Notebook&, const QString&, const Record&) {}

void EvernoteExportOperation::exportNotebookDidEnd(const Notebook& notebook, const std::optional<Error>& error)
{
    if (error) {
        stopRun(error);
        return;
    }
    log(QStringLiteral("*** Export ended for notebook: ") + notebook->name());
    const auto found = std::find(m_notebooks.begin(), m_notebooks.end(), notebook);
    if (found == m_notebooks.end() || found + 1 == m_notebooks.end())
        finishRun();
    else
        exportNoteBook(*(found + 1));
}

void EvernoteExportOperation::finishRun()
{
    // What the application makes of a manifest that could not be written, it reports itself.
    static_cast<void>(m_libraryPlist->write());
    m_quilleryApp->activate();
    Error error;
    const bool imported = m_quilleryApp->importFiles({m_libraryPlist->path()}, QuilleryApplication::ImportMode::Copy,
                                                     {}, 0, {}, 0, {}, &error);
    if (!imported) {
        stopRun(error);
        return;
    }
    BMXLogManager::sharedManager().restoreStandardError();
    informDelegateDidEnd();
    m_logStream->close();
}

void EvernoteExportOperation::stopRun(const std::optional<Error>& error)
{
    BMXLogManager::sharedManager().restoreStandardError();
    if (error && isCancelled())
        informDelegateDidCancel();
    else
        informDelegateDidEncounterError(error);
}
