// SPDX-License-Identifier: MIT
#include "import/EvernoteExportOperation.h"

#include "convert/NoteDocument.h"
#include "foundation/BMXLogManager.h"
#include "foundation/OutputStreamBMExtensions.h"
#include "import/EvernoteHTMLExportOperation.h"
#include "import/EvernoteXMLExportOperation.h"
#include "import/ExportErrors.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/NumericText.h"
#include "platform/core/SystemLog.h"
#include "platform/defaults/UserDefaults.h"
#include "platform/scripting/QuilleryIdentifiers.h"

#include <algorithm>
#include <array>
#include <cmath>

using platform::Error;
using platform::localizedString;
using platform::QuilleryApplication;
using platform::UserDefaults;
using platform::manifest::Record;

namespace {

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
    // A run that was cancelled before it could end has not done so.
    releaseSharedState();
}

void EvernoteExportOperation::releaseSharedState()
{
    BMXLogManager::sharedManager().endRedirection(std::exchange(m_redirection, 0));
    m_heldSettings.reset();
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
    const QString version = application->version();
    // One that does not answer is not one that is too old.
    if (const std::optional<Error> silence = application->lastError(); silence && version.isNull()) {
        platform::setError(error, *silence);
        return std::nullopt;
    }
    if (!isRecentEnough(version)) {
        platform::setError(error, Error(evernoteExportErrorDomain, EvernoteExportErrorQuilleryTooOld,
                                        localizedString("Quillery 3.5 or later is required.")));
        return std::nullopt;
    }
    m_quilleryApp = std::move(application);
    return identifier;
}

std::optional<EvernoteExportOperation::Notes> EvernoteExportOperation::fetchNotes(const Notebook& notebook,
                                                                                  Error* error)
{
    Notes notes = notebook->notes();
    const std::optional<Error> failure = m_evernoteApp ? m_evernoteApp->lastError() : std::nullopt;
    // No notes and no answer look the same.
    if (notes.empty() && failure) {
        platform::setError(error, *failure);
        return std::nullopt;
    }
    m_report.notes += notes.size() - m_countedNotes;
    m_countedNotes = notes.size();
    return notes;
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
    // A hook that ends its notebook at once asks for the next one from within itself. One call inside the other
    // for each notebook would need a stack as deep as there are notebooks; so the outermost call does them all.
    struct Loop {
        EvernoteExportOperation* run;
        Notebook next;
    };
    static thread_local Loop* runningLoop = nullptr;
    if (runningLoop && runningLoop->run == this) {
        runningLoop->next = notebook;
        return;
    }
    Loop loop{this, notebook};
    Loop* const outer = std::exchange(runningLoop, &loop);
    while (const Notebook next = std::exchange(loop.next, nullptr))
        exportOneNoteBook(next);
    runningLoop = outer;
}

void EvernoteExportOperation::exportOneNoteBook(const Notebook& notebook)
{
    ++m_notebooksBegun;
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
    Error error;
    // What the application makes of a manifest that could not be written, it reports itself.
    if (!m_libraryPlist->write(&error))
        platform::systemLog(QStringLiteral("Couldn't write the import manifest: %1").arg(error.description()));
    m_quilleryApp->activate();
    error = {};
    const bool imported = m_quilleryApp->importFiles({m_libraryPlist->path()}, QuilleryApplication::ImportMode::Copy,
                                                     {}, 0, {}, 0, {}, &error);
    releaseSharedState();
    if (!imported) {
        // No cancellation, even if somebody asked for one meanwhile: something may have been imported.
        informDelegateDidEncounterError(error);
        return;
    }
    informDelegateDidEnd();
    m_logStream->close();
}

void EvernoteExportOperation::countNotebooksLeft()
{
    for (; m_notebooksBegun < m_notebooks.size(); ++m_notebooksBegun)
        m_report.notes += m_notebooks[m_notebooksBegun]->numberOfNotes();
}

void EvernoteExportOperation::stopRun(const std::optional<Error>& error)
{
    countNotebooksLeft();
    releaseSharedState();
    if (error && isCancelled())
        informDelegateDidCancel();
    else
        informDelegateDidEncounterError(error);
}
