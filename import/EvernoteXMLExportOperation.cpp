// SPDX-License-Identifier: MIT
#include "import/EvernoteXMLExportOperation.h"

#include "foundation/FileNameFitting.h"
#include "foundation/FreeFileNames.h"
#include "import/ExportErrors.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/files/FileManager.h"

#include <QUrl>

#include <cstdio>

using platform::Error;
using platform::EvernoteApplication;
using platform::localizedString;
using platform::manifest::Record;

namespace {

const QString evernoteIdentifier = QStringLiteral("com.evernote.Evernote");

QString freePath(const QString& folder, const QString& name)
{
    return folder + QLatin1Char('/') +
           freeFileNameInDirectoryAtURL(name, QUrl::fromLocalFile(folder));
}

} // namespace

void EvernoteXMLExportOperation::cancel()
{
    if (platform::OperationQueue* const queue = parserQueue())
        queue->cancelAllOperations();
    EvernoteExportOperation::cancel();
}

void EvernoteXMLExportOperation::performExportForNotebook(const Notebook& notebook,
                                                          const QString& toNotebookFilesPath,
                                                          const Record& targetFolder)
{
    Error error;
    const QString xmlFolder = toNotebookFilesPath + QStringLiteral("/XML");
    if (!platform::createDirectory(xmlFolder, platform::IntermediateFolders::Create, &error)) {
        exportNotebookDidEnd(notebook, error);
        return;
    }
    const std::optional<Notes> fetched = fetchNotes(notebook, &error);
    const std::optional<QString> file =
        fetched ? exportNotes(notebook, *fetched, xmlFolder, &error) : std::nullopt;
    if (!file) {
        exportNotebookDidEnd(notebook, error);
        return;
    }
    if (!m_parserQueue) {
        m_parserQueue = std::make_unique<platform::OperationQueue>();
        m_sharedQueue = m_parserQueue.get();
    }
    m_notebookItemDicts = {};
    m_handledTitles = {};
    m_handledNotes = 0;
    convertFile(QUrl::fromLocalFile(*file), toNotebookFilesPath, targetFolder, m_notebookItemDicts,
                *m_parserQueue,
                [this, notebook, notes = *fetched](const std::optional<Error>& parseError) {
                    if (!parseError)
                        warnOfMissingNotes(notes);
                    exportNotebookDidEnd(notebook, parseError);
                });
}

std::optional<QString> EvernoteXMLExportOperation::exportFolder(bool* made, Error* error)
{
    *made = false;
    // An application in a container writes nowhere else.
    const QString container =
        directories().library + QStringLiteral("/Containers/") + evernoteIdentifier;
    if (!platform::fileExistsAtPath(container)) {
        if (!directories().temporary.isEmpty())
            return directories().temporary;
        platform::setError(error, directoryError());
        return std::nullopt;
    }
    const QString folder =
        container + QStringLiteral("/Data/Library/Application Support/EvernoteImporter");
    Error failure;
    if (!platform::createDirectory(folder, platform::IntermediateFolders::Create, &failure)) {
        log(QStringLiteral("Cannot create directory: ") + failure.description());
        platform::setError(error, failure);
        return std::nullopt;
    }
    *made = true;
    return folder;
}

std::optional<QString> EvernoteXMLExportOperation::exportNotes(const Notebook& notebook,
                                                               const Notes& notes,
                                                               const QString& folder, Error* error)
{
    bool madeExportFolder = false;
    const std::optional<QString> exportsTo = exportFolder(&madeExportFolder, error);
    if (!exportsTo)
        return std::nullopt;
    const QString name = fileNameFromTitle(notebook->name()) + QStringLiteral(".enex");
    const QString exportFile = freePath(*exportsTo, name);
    if (debugMode())
        log(QStringLiteral("Exporting ENEX to: ") + exportFile);
    Error exportError;
    const bool exported =
        evernoteApp() &&
        evernoteApp()->exportNotes(notes, exportFile, EvernoteApplication::ExportTags::Yes,
                                   EvernoteApplication::ExportFormat::ENEX, &exportError);
    const QString finalFile = freePath(folder, name);
    if (debugMode())
        log(QStringLiteral("Moving exported file to: ") + finalFile);
    Error moveError;
    if (!platform::moveItem(exportFile, finalFile, &moveError)) {
        std::fprintf(stderr, "Error moving exported XML: %s\n",
                     moveError.description().toUtf8().constData());
        // The file is missing because the application could not write it, which is what people want
        // to know.
        const bool knowsWhy = !exported && !exportError.isNull();
        platform::setError(error, knowsWhy ? Error(moveError.domain(), moveError.code(),
                                                   exportError.localizedDescription())
                                                 .withUnderlyingError(exportError)
                                           : moveError);
        return std::nullopt;
    }
    if (!exported && !exportError.isNull())
        m_report.warnings.push_back({notebook->name(), exportError.localizedDescription()});
    if (madeExportFolder)
        static_cast<void>(platform::removeItem(*exportsTo));
    return finalFile;
}

void EvernoteXMLExportOperation::didHandleNote(const QString& title)
{
    ++m_handledNotes;
    ++m_handledTitles[qHash(title)];
}

void EvernoteXMLExportOperation::warnOfMissingNotes(const Notes& notes)
{
    if (m_handledNotes >= notes.size()) {
        // More than were asked for: all of them count.
        m_report.notes += m_handledNotes - notes.size();
        return;
    }
    quint64 missing = notes.size() - m_handledNotes;
    for (std::size_t index = 0; index < notes.size() && missing > 0; ++index) {
        const QString title = notes[index]->title();
        int& handled = m_handledTitles[qHash(title)];
        // Titles may have changed on their way; in the end as many are told as there are too few.
        if (handled > 0 && notes.size() - index > missing) {
            --handled;
            continue;
        }
        --missing;
        m_report.skipped.push_back(
            {title, Error(evernoteExportErrorDomain, EvernoteExportErrorNoteNotExported,
                          localizedString("Evernote did not export this note."))});
    }
}
