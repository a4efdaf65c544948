// SPDX-License-Identifier: MIT
#include "tools/ImportRun.h"

#include "foundation/BMXLogManager.h"

#include <QElapsedTimer>
#include <QEventLoop>

#include <thread>

namespace {

// Milliseconds between two requests to stop.
constexpr int cancelInterval = 10;

} // namespace

ImportRun::ImportRun(const ImportSource& source,
                     const std::shared_ptr<platform::ScriptingBridge>& bridge,
                     const RunDirectories& directories, ProgressDisplay& progress)
    : m_operation(source.newRun())
    , m_progress(progress)
{
    m_outcome.file = source.name;
    m_outcome.source = source.kind;
    m_operation->setScriptingBridge(bridge);
    m_operation->setRunDirectories(directories);
    m_operation->setDelegate(this);
    m_cancelTimer.setInterval(cancelInterval);
    QObject::connect(&m_cancelTimer, &QTimer::timeout, [this] { cancelConversions(); });
}

RunOutcome ImportRun::run()
{
    QElapsedTimer timer;
    timer.start();
    m_queue.addOperation(m_operation);
    // The run ends when both queues are empty, which only a thread other than this one can wait
    // for: reports keep arriving here until then.
    QEventLoop loop;
    std::thread waiter([this, &loop] {
        m_queue.waitUntilAllOperationsAreFinished();
        if (platform::OperationQueue* const conversions = m_operation->conversionQueue())
            conversions->waitUntilAllOperationsAreFinished();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    waiter.join();
    m_cancelTimer.stop();
    m_progress.end();
    // A run that was stopped before its conversion began has nobody left to give it back.
    BMXLogManager::sharedManager().restoreStandardError();
    const auto unreportedEnd =
        m_operation->isCancelled() ? RunOutcome::End::Cancelled : RunOutcome::End::Failed;
    m_outcome.end = m_reportedEnd.value_or(unreportedEnd);
    m_outcome.report = m_operation->report();
    if (m_outcome.end == RunOutcome::End::Imported)
        m_outcome.manifest = m_operation->libraryPlist();
    m_outcome.seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    if (m_operation->logStream())
        m_outcome.logPath = m_operation->logStream()->path();
    return m_outcome;
}

void ImportRun::cancel()
{
    m_operation->cancel();
    cancelConversions();
    m_cancelTimer.start();
}

void ImportRun::cancelConversions()
{
    if (platform::OperationQueue* const conversions = m_operation->conversionQueue())
        conversions->cancelAllOperations();
}

void ImportRun::beginProgress(quint64 count)
{
    // Cancelled while the notes were counted.
    if (!m_operation->isCancelled())
        m_progress.begin(m_outcome.file, count);
}

void ImportRun::exportOperationDidStart(EvernoteExportOperation&) {}

void ImportRun::exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation&,
                                                             quint64 count, const QString&)
{
    beginProgress(count);
}

void ImportRun::exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation&,
                                                              quint64 count, const QUrl&)
{
    beginProgress(count);
}

void ImportRun::exportOperationDidExportRecord(EvernoteExportOperation& operation)
{
    if (!operation.isCancelled())
        m_progress.advance();
}

void ImportRun::exportOperationDidEncounterError(EvernoteExportOperation&,
                                                 const std::optional<platform::Error>& error)
{
    m_reportedEnd = RunOutcome::End::Failed;
    if (!m_outcome.error)
        m_outcome.error = error;
}

void ImportRun::exportOperationDidCancel(EvernoteExportOperation&)
{
    m_reportedEnd = RunOutcome::End::Cancelled;
}

void ImportRun::exportOperationDidEnd(EvernoteExportOperation&)
{
    m_reportedEnd = RunOutcome::End::Imported;
}
