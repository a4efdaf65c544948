// SPDX-License-Identifier: MIT
#pragma once

#include "app/Environment.h"
#include "app/ImportOutcome.h"
#include "app/RunLock.h"
#include "import/EvernoteExportOperation.h"
#include "import/EvernoteXMLFileExportOperation.h"
#include "platform/operations/OperationQueue.h"

#include <QPointer>
#include <QTimer>
#include <QUrl>

class ProgressSheet;
class QWidget;

// Runs imports, one at a time, and shows their progress in a sheet that closes itself when the run
// ends.
//
// All of it lives on the main thread, where the reports of a run arrive.
class EvernoteExportPanel : public EvernoteExportOperationDelegate {
public:
    enum ReturnCode { ReturnCodeCancelled = 0, ReturnCodeEnded = 1 };
    // Hears the return code when the sheet has closed.
    using CompletionHandler = std::function<void(int returnCode)>;

    explicit EvernoteExportPanel(const Environment& environment);
    ~EvernoteExportPanel() override;

    // Starts an import of notebooks, in this order. False, after an alert, while another process
    // imports.
    bool showSheetOnWindowToExportFromApp(
        QWidget& parentWindow, const std::shared_ptr<platform::EvernoteApplication>& app,
        const std::vector<EvernoteExportOperation::Notebook>& notebooks,
        CompletionHandler completionHandler);
    // Starts an import of an ENEX file. False, after an alert, while another process imports.
    bool showSheetOnWindowToExportFromFile(QWidget& parentWindow, const QUrl& file,
                                           CompletionHandler completionHandler);

    // How the next file is read, when it is of today's Evernote.
    void setModernFiles(EvernoteXMLFileExportOperation::ModernFiles modernFiles)
    {
        m_modernFiles = modernFiles;
    }

    // Asks the run to stop. What it has queued elsewhere goes on to its end; the sheet stays until
    // the run reports.
    void cancel();

    [[nodiscard]] const QString& titleMessage() const { return m_titleMessage; }
    [[nodiscard]] const QString& informationMessage() const { return m_informationMessage; }
    [[nodiscard]] platform::OperationQueue& operationQueue() { return m_operationQueue; }
    // Null until the first run.
    [[nodiscard]] QWidget* window() const;

    // A run goes on somewhere, be it only in a queue of its own.
    [[nodiscard]] bool isRunning() const { return !m_run.expired(); }

    // Hears of every run that is over, once its sheet is gone and it holds nothing any more.
    void setRunDidEnd(std::function<void(const ImportOutcome&)> handler)
    {
        m_runDidEnd = std::move(handler);
    }
    // What the button says that closes the sheet of a failed run.
    void setDismissalTitle(const QString& title) { m_dismissalTitle = title; }

    void exportOperationDidStart(EvernoteExportOperation& operation) override;
    void exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation& operation,
                                                      quint64 count, const QString& name) override;
    void exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation& operation,
                                                       quint64 count, const QUrl& url) override;
    void exportOperationDidExportRecord(EvernoteExportOperation& operation) override;
    void exportOperationDidEncounterError(EvernoteExportOperation& operation,
                                          const std::optional<platform::Error>& error) override;
    void exportOperationDidCancel(EvernoteExportOperation& operation) override;
    void exportOperationDidEnd(EvernoteExportOperation& operation) override;

private:
    [[nodiscard]] bool lockRuns(QWidget& parentWindow);
    void beginSheet(QWidget& parentWindow, const QString& source,
                    CompletionHandler completionHandler);
    void start(const std::shared_ptr<EvernoteExportOperation>& run);
    void endSheet(int returnCode);
    void keepOutcome(const EvernoteExportOperation& operation, ImportOutcome::End end);
    void runBecameIdle();

    void setTitleMessage(const QString& message);
    void setInformationMessage(const QString& message);
    void beginCounting(quint64 count);
    void makeIndeterminate();

    const Environment& m_environment;
    platform::OperationQueue m_operationQueue;
    QPointer<QWidget> m_parentWindow;
    QPointer<ProgressSheet> m_sheet;
    CompletionHandler m_completionHandler;
    std::function<void(const ImportOutcome&)> m_runDidEnd;
    QString m_dismissalTitle;

    QString m_titleMessage;
    QString m_informationMessage;
    bool m_isIndeterminate = true;
    quint64 m_value = 0;
    quint64 m_maximum = 0;

    EvernoteXMLFileExportOperation::ModernFiles m_modernFiles =
        EvernoteXMLFileExportOperation::ModernFiles::BySetting;
    RunLock m_lock;
    ImportOutcome m_outcome;
    bool m_sheetIsShown = false;
    // The run keeps itself alive through whatever it has queued, so it is gone when it does nothing
    // any more.
    std::weak_ptr<EvernoteExportOperation> m_run;
    QTimer m_idleTimer;
};
