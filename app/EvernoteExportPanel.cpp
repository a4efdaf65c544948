// SPDX-License-Identifier: MIT
#include "app/EvernoteExportPanel.h"

#include "app/Alert.h"
#include "app/ProgressSheet.h"
#include "foundation/BMXLogManager.h"
#include "import/EvernoteXMLFileExportOperation.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/StringFormat.h"

#include <chrono>

using platform::localizedString;
using platform::stringWithFormat;

namespace {

constexpr std::chrono::milliseconds idleCheckInterval(50);

} // namespace

EvernoteExportPanel::EvernoteExportPanel(const Environment& environment)
    : m_environment(environment)
    , m_dismissalTitle(localizedString("Close"))
{
    m_idleTimer.setInterval(idleCheckInterval);
    QObject::connect(&m_idleTimer, &QTimer::timeout, [this] {
        if (m_run.expired())
            runBecameIdle();
    });
}

EvernoteExportPanel::~EvernoteExportPanel()
{
    if (const auto run = m_run.lock()) {
        run->setDelegate(nullptr);
        run->cancel();
    }
    delete m_sheet;
}

QWidget* EvernoteExportPanel::window() const
{
    return m_sheet;
}

bool EvernoteExportPanel::showSheetOnWindowToExportFromApp(
    QWidget& parentWindow, const std::shared_ptr<platform::EvernoteApplication>& app,
    const std::vector<EvernoteExportOperation::Notebook>& notebooks,
    CompletionHandler completionHandler)
{
    if (!lockRuns(parentWindow))
        return false;
    app->activate();
    beginSheet(parentWindow, {}, std::move(completionHandler));
    start(EvernoteExportOperation::exportOperationForApp(app, notebooks, this));
    return true;
}

bool EvernoteExportPanel::showSheetOnWindowToExportFromFile(QWidget& parentWindow, const QUrl& file,
                                                            CompletionHandler completionHandler)
{
    if (!lockRuns(parentWindow))
        return false;
    beginSheet(parentWindow, file.fileName(), std::move(completionHandler));
    const auto run = std::make_shared<EvernoteXMLFileExportOperation>();
    run->setExportFileURL(file);
    run->setModernFiles(m_modernFiles);
    run->setDelegate(this);
    start(run);
    return true;
}

bool EvernoteExportPanel::lockRuns(QWidget& parentWindow)
{
    if (m_lock.acquire(m_environment.directories.temporary))
        return true;
    beginAlertSheet({localizedString("Another import is running."),
                     localizedString("Wait until it has finished and try again."),
                     {}},
                    parentWindow);
    return false;
}

void EvernoteExportPanel::beginSheet(QWidget& parentWindow, const QString& source,
                                     CompletionHandler completionHandler)
{
    m_parentWindow = &parentWindow;
    m_completionHandler = std::move(completionHandler);
    m_outcome = {};
    m_outcome.source = source;
    if (!m_sheet || m_sheet->parentWidget() != &parentWindow) {
        delete m_sheet;
        m_sheet = new ProgressSheet(
            &parentWindow, [this] { cancel(); }, [this] { endSheet(ReturnCodeCancelled); });
    }
    m_sheet->withdrawDismissal();
    m_value = 0;
    m_maximum = 0;
    makeIndeterminate();
    setTitleMessage(localizedString("Preparing..."));
    setInformationMessage({});
    m_sheetIsShown = true;
    m_sheet->open();
}

void EvernoteExportPanel::start(const std::shared_ptr<EvernoteExportOperation>& run)
{
    if (m_environment.scriptingBridge)
        run->setScriptingBridge(m_environment.scriptingBridge());
    run->setRunDirectories(m_environment.directories);
    m_run = run;
    m_operationQueue.addOperation(run);
    m_idleTimer.start();
}

void EvernoteExportPanel::cancel()
{
    makeIndeterminate();
    setTitleMessage(localizedString("Cancelling..."));
    setInformationMessage({});
    if (!m_outcome.error)
        m_outcome.end = ImportOutcome::End::Cancelled;
    m_operationQueue.cancelAllOperations();
}

void EvernoteExportPanel::endSheet(int returnCode)
{
    if (!m_sheetIsShown)
        return;
    m_sheetIsShown = false;
    m_sheet->done(returnCode);
    // A handler may start the next run.
    if (const CompletionHandler handler = std::exchange(m_completionHandler, nullptr))
        handler(returnCode);
    m_idleTimer.start();
}

void EvernoteExportPanel::runBecameIdle()
{
    m_idleTimer.stop();
    // A run that ended without a report has not given it back.
    BMXLogManager::sharedManager().restoreStandardError();
    if (m_sheetIsShown) {
        // After an error, or when it was cancelled before it began, no report comes that would
        // close the sheet.
        m_sheet->offerDismissal(m_dismissalTitle);
        return;
    }
    m_lock.release();
    if (m_runDidEnd)
        m_runDidEnd(m_outcome);
}

void EvernoteExportPanel::keepOutcome(const EvernoteExportOperation& operation,
                                      ImportOutcome::End end)
{
    m_outcome.end = end;
    m_outcome.report = operation.report();
    if (operation.logStream())
        m_outcome.logPath = operation.logStream()->path();
}

void EvernoteExportPanel::setTitleMessage(const QString& message)
{
    m_titleMessage = message;
    m_sheet->setTitleMessage(message);
}

void EvernoteExportPanel::setInformationMessage(const QString& message)
{
    m_informationMessage = message;
    m_sheet->setInformationMessage(message);
}

void EvernoteExportPanel::makeIndeterminate()
{
    m_isIndeterminate = true;
    m_sheet->setIndeterminate();
}

void EvernoteExportPanel::beginCounting(quint64 count)
{
    m_isIndeterminate = false;
    m_value = 0;
    m_maximum = count;
    m_sheet->setProgress(m_value, m_maximum);
}

void EvernoteExportPanel::exportOperationDidStart(EvernoteExportOperation&)
{
    setTitleMessage(localizedString("Exporting Notes"));
}

void EvernoteExportPanel::exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation&,
                                                                       quint64 count,
                                                                       const QString& name)
{
    beginCounting(count);
    setTitleMessage(stringWithFormat(localizedString("Exporting notes from \"%@\""), {name}));
    setInformationMessage(stringWithFormat(localizedString("%lu of %lu notes exported"),
                                           {QString::number(0), QString::number(count)}));
}

void EvernoteExportPanel::exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation&,
                                                                        quint64 count,
                                                                        const QUrl& url)
{
    beginCounting(count);
    setTitleMessage(
        stringWithFormat(localizedString("Exporting notes from \"%@\""), {url.fileName()}));
    // Only the notes done so far have a place in this text; how many there are is said with the
    // first.
    setInformationMessage(stringWithFormat(localizedString("%lu notes exported"),
                                           {QString::number(0), QString::number(count)}));
}

void EvernoteExportPanel::exportOperationDidExportRecord(EvernoteExportOperation&)
{
    m_value = std::min(m_value + 1, m_maximum);
    if (!m_isIndeterminate)
        m_sheet->setProgress(m_value, m_maximum);
    setInformationMessage(stringWithFormat(localizedString("%lu of %lu notes exported"),
                                           {QString::number(m_value), QString::number(m_maximum)}));
}

void EvernoteExportPanel::exportOperationDidEncounterError(
    EvernoteExportOperation& operation, const std::optional<platform::Error>& error)
{
    const bool isFirst = m_outcome.end != ImportOutcome::End::Failed || !m_outcome.error;
    keepOutcome(operation, ImportOutcome::End::Failed);
    if (isFirst)
        m_outcome.error = error;
    const QString text = error ? error->localizedDescription() : QString();
    runModalAlert({localizedString("An error occurred while exporting."),
                   text.isEmpty() ? localizedString("An unknown error occurred.") : text,
                   {}},
                  m_sheetIsShown ? static_cast<QWidget*>(m_sheet) : m_parentWindow.data());
}

void EvernoteExportPanel::exportOperationDidCancel(EvernoteExportOperation& operation)
{
    keepOutcome(operation, ImportOutcome::End::Cancelled);
    endSheet(ReturnCodeCancelled);
}

void EvernoteExportPanel::exportOperationDidEnd(EvernoteExportOperation& operation)
{
    keepOutcome(operation, ImportOutcome::End::Imported);
    endSheet(ReturnCodeEnded);
}
