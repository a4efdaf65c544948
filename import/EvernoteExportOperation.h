// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteExportOperationDelegate.h"
#include "import/ImportManifest.h"
#include "import/ImportReport.h"
#include "import/RunDirectories.h"
#include "platform/core/Error.h"
#include "platform/defaults/UserDefaultsHold.h"
#include "platform/files/OutputStream.h"
#include "platform/htmlimport/HtmlImport.h"
#include "platform/operations/Operation.h"
#include "platform/operations/OperationQueue.h"
#include "platform/scripting/EvernoteApplication.h"
#include "platform/scripting/ScriptingBridge.h"

#include <QString>
#include <QUrl>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class EvernoteXMLNote;
class EvernoteXMLParseOperation;

// One import run. It finds the notes application that will receive the notes, lays out the files folder, opens
// the log, starts the manifest, converts the notebooks one after another, and at the end writes the manifest and
// asks the application to import it. Subclasses bring the notes through performExportForNotebook.
//
// Runs are shared: what they queue keeps them alive. They work on queue threads and must never be started on the
// main thread, which every report to the delegate waits for.
class EvernoteExportOperation : public platform::Operation, public std::enable_shared_from_this<EvernoteExportOperation> {
public:
    using Notebook = std::shared_ptr<platform::EvernoteNotebook>;

    // A run over the Evernote application's notebooks, not yet queued: by HTML export when the setting
    // "UseHTMLExport" says so, else by ENEX export.
    [[nodiscard]] static std::shared_ptr<EvernoteExportOperation>
    exportOperationForApp(const std::shared_ptr<platform::EvernoteApplication>& app,
                          const std::vector<Notebook>& notebooks, EvernoteExportOperationDelegate* delegate);

    EvernoteExportOperation();
    ~EvernoteExportOperation() override;

    // Converted in this order.
    [[nodiscard]] const std::vector<Notebook>& notebooks() const { return m_notebooks; }
    void setNotebooks(const std::vector<Notebook>& notebooks) { m_notebooks = notebooks; }

    // Not owned; it must outlive the run or be taken away on the main thread before it goes.
    [[nodiscard]] EvernoteExportOperationDelegate* delegate() const { return m_delegate; }
    void setDelegate(EvernoteExportOperationDelegate* delegate) { m_delegate = delegate; }

    // Null for a run that reads no application.
    [[nodiscard]] const std::shared_ptr<platform::EvernoteApplication>& evernoteApp() const { return m_evernoteApp; }
    void setEvernoteApp(std::shared_ptr<platform::EvernoteApplication> app) { m_evernoteApp = std::move(app); }

    [[nodiscard]] const std::shared_ptr<ImportManifest>& libraryPlist() const { return m_libraryPlist; }
    [[nodiscard]] const QString& filesPath() const { return m_filesPath; }
    [[nodiscard]] const std::shared_ptr<platform::OutputStream>& logStream() const { return m_logStream; }
    // Of the HTML import of notes that come as HTML.
    [[nodiscard]] const platform::HtmlImportOptions& textImportOptions() const { return m_textImportOptions; }
    // From the setting "ExportDebug".
    [[nodiscard]] bool debugMode() const { return m_debugMode; }
    [[nodiscard]] const std::shared_ptr<platform::QuilleryApplication>& quilleryApp() const { return m_quilleryApp; }

    // Where applications are looked for. Must be set before the run is queued.
    void setScriptingBridge(std::shared_ptr<platform::ScriptingBridge> bridge) { m_scriptingBridge = std::move(bridge); }
    void setRunDirectories(const RunDirectories& directories) { m_directories = directories; }

    // What became of the notes. Complete once the delegate has heard of the end; to be read on the main thread.
    [[nodiscard]] const ImportReport& report() const { return m_report; }

    // Where the run goes on after main() has returned; null while, or where, there is no such place.
    [[nodiscard]] virtual platform::OperationQueue* conversionQueue() { return nullptr; }

    // The identifier of the notes application's edition that will receive the import, a running one first. None
    // with an error when there is none, or when it is too old.
    [[nodiscard]] std::optional<QString> getQuilleryApplicationBundleIdentifier(platform::Error* error = nullptr);

    // Makes the files folder anew and starts the manifest and the log. False with an error when an earlier run's
    // folder cannot be removed. When the new one cannot be made, the error is filled but the run goes on: it
    // will fail at the first notebook's folder, with a log.
    [[nodiscard]] bool prepareToExportWithAppIdentifier(const QString& identifier, platform::Error* error = nullptr);

    // Makes a notebook's folder and record. A failure is reported here, so none is handed out.
    [[nodiscard]] bool prepareToExportNotebook(const Notebook& notebook, QString* notebookFilesPath,
                                               platform::manifest::Record* targetFolder,
                                               platform::Error* error = nullptr);

    void exportNoteBook(const Notebook& notebook);

    // To be called once by whoever converted a notebook, with none or the error that ended it: goes on with the
    // next notebook, or finishes the run. From within performExportForNotebook the next notebook begins when
    // that has returned.
    void exportNotebookDidEnd(const Notebook& notebook, const std::optional<platform::Error>& error);

protected:
    void main() override;

    // Converts a notebook's notes into the folder, now or later on another thread. The frame's own does nothing.
    virtual void performExportForNotebook(const Notebook& notebook, const QString& toNotebookFilesPath,
                                          const platform::manifest::Record& targetFolder);

    // Each carries one report to the delegate on the main thread and waits for it.
    void informDelegateDidStart();
    void informDelegateWillExportRecordsFromNotebook(quint64 count, const QString& name);
    void informDelegateDidExportRecord();
    void informDelegateDidEncounterError(const std::optional<platform::Error>& error);
    void informDelegateDidCancel();
    void informDelegateDidEnd();
    void informDelegate(const std::function<void(EvernoteExportOperationDelegate&)>& call);

    void log(const QString& line);
    [[nodiscard]] const RunDirectories& directories() const { return m_directories; }

    using Notes = std::vector<std::shared_ptr<platform::EvernoteNote>>;
    // The notebook's notes, which the report counts instead of what was counted before. None with an error when
    // the application could not give them.
    [[nodiscard]] std::optional<Notes> fetchNotes(const Notebook& notebook, platform::Error* error);

    using ConversionEnd = std::function<void(const std::optional<platform::Error>& error)>;
    // Queues the parse of an ENEX file whose notes go into a notebook's folder. Each note is logged, reported, and
    // appended to items, which must live as long as the run. After the last one the items are in the manifest.
    // didEnd is called on the queue's thread with none or the error that ended the parse, of which there may be
    // two.
    void convertFile(const QUrl& file, const QString& folderPath, const platform::manifest::Record& folder,
                     ItemRecordList& items, platform::OperationQueue& queue, ConversionEnd didEnd);
    // Says how a parse reads its file, before it begins: by the settings.
    virtual void configureParse(EvernoteXMLParseOperation& parse);
    // A note of that title was handled by a parse.
    virtual void didHandleNote(const QString& title);
    // A note's counts are in the report; record: null where it was skipped.
    virtual void didCount(const EvernoteXMLNote& note, const platform::manifest::Record& record);

    // Ends the run's hold on what the whole process shares, standard error and the settings, as every run does
    // before it reports its end.
    void releaseSharedState();

    // Writes the manifest, asks for its import, and reports the end, or the error of an application that could
    // not import.
    void finishRun();
    // Reports an error that ended the run, or its cancellation.
    void stopRun(const std::optional<platform::Error>& error);

    // A folder for a notebook's files, and its record entered in the manifest; none with the file system's error.
    // A name that the manifest or the file system has no room for is repaired and shortened for both.
    [[nodiscard]] platform::manifest::Record makeNotebookFolder(const QString& name, QString* folderPath,
                                                                platform::Error* error);
    void logUnableToCreate(const QString& folderPath, const platform::Error& error);

    [[nodiscard]] static platform::Error directoryError();

    ImportReport m_report;

private:
    [[nodiscard]] std::shared_ptr<platform::QuilleryApplication> findQuillery(QString* identifier);
    void openLog(const QString& identifier);
    void exportOneNoteBook(const Notebook& notebook);
    // note: null for an end of a note that nothing had begun.
    void didExportItem(const EvernoteXMLNote* note, const platform::manifest::Record& record,
                       const std::optional<platform::Error>& error, ItemRecordList& items);
    void countNotebooksLeft();

    std::vector<Notebook> m_notebooks;
    // How many of them the run has begun.
    std::size_t m_notebooksBegun = 0;
    // Notes of the current notebook that the report has counted.
    quint64 m_countedNotes = 0;
    std::atomic<EvernoteExportOperationDelegate*> m_delegate = nullptr;
    std::shared_ptr<platform::EvernoteApplication> m_evernoteApp;
    std::shared_ptr<ImportManifest> m_libraryPlist;
    QString m_filesPath;
    std::shared_ptr<platform::OutputStream> m_logStream;
    platform::HtmlImportOptions m_textImportOptions;
    bool m_debugMode = false;
    std::shared_ptr<platform::QuilleryApplication> m_quilleryApp;
    std::shared_ptr<platform::ScriptingBridge> m_scriptingBridge;
    RunDirectories m_directories = RunDirectories::standard();
    // All of a run's notes are converted under the settings of its beginning.
    std::optional<platform::UserDefaultsHold> m_heldSettings;
    // Of standard error into the log; 0 when it was given back.
    quint64 m_redirection = 0;
};
