// SPDX-License-Identifier: MIT
#include "tools/FileRun.h"

#include "foundation/BMXLogManager.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>

#include <thread>

namespace {

// Milliseconds between two requests to stop.
constexpr int cancelInterval = 10;

} // namespace

FileRun::FileRun(const QString& file, const std::shared_ptr<platform::ScriptingBridge>& bridge,
                 const RunDirectories& directories, ProgressDisplay& progress)
    : m_operation(std::make_shared<EvernoteXMLFileExportOperation>())
    , m_progress(progress)
{
    m_outcome.file = file;
    m_operation->setExportFileURL(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()));
    m_operation->setScriptingBridge(bridge);
    m_operation->setRunDirectories(directories);
    m_operation->setDelegate(this);
    m_cancelTimer.setInterval(cancelInterval);
    QObject::connect(&m_cancelTimer, &QTimer::timeout,
                     [this] { m_operation->parserQueue().cancelAllOperations(); });
}

RunOutcome FileRun::run()
{
    QElapsedTimer timer;
    timer.start();
    m_queue.addOperation(m_operation);
    // The run ends when both queues are empty, which only a thread other than this one can wait for: reports
    // keep arriving here until then.
    QEventLoop loop;
    std::thread waiter([this, &loop] {
        m_queue.waitUntilAllOperationsAreFinished();
        m_operation->parserQueue().waitUntilAllOperationsAreFinished();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    waiter.join();
    m_cancelTimer.stop();
    m_progress.end();
    // A run that was stopped before its conversion began has nobody left to give it back.
    BMXLogManager::sharedManager().restoreStandardError();
    const auto unreportedEnd
        = m_operation->isCancelled() ? RunOutcome::End::Cancelled : RunOutcome::End::Failed;
    m_outcome.end = m_reportedEnd.value_or(unreportedEnd);
    m_outcome.report = m_operation->report();
    m_outcome.seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    if (m_operation->logStream())
        m_outcome.logPath = m_operation->logStream()->path();
    return m_outcome;
}

void FileRun::cancel()
{
    m_operation->cancel();
    m_operation->parserQueue().cancelAllOperations();
    m_cancelTimer.start();
}

void FileRun::exportOperationDidStart(EvernoteExportOperation&) {}

void FileRun::exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation&, quint64, const QString&)
{
}

void FileRun::exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation& operation, quint64 count,
                                                            const QUrl&)
{
    // Cancelled while the notes were counted.
    if (!operation.isCancelled())
        m_progress.begin(m_outcome.file, count);
}

void FileRun::exportOperationDidExportRecord(EvernoteExportOperation& operation)
{
    if (!operation.isCancelled())
        m_progress.advance();
}

void FileRun::exportOperationDidEncounterError(EvernoteExportOperation&,
                                               const std::optional<platform::Error>& error)
{
    m_reportedEnd = RunOutcome::End::Failed;
    if (!m_outcome.error)
        m_outcome.error = error;
}

void FileRun::exportOperationDidCancel(EvernoteExportOperation&)
{
    m_reportedEnd = RunOutcome::End::Cancelled;
}

void FileRun::exportOperationDidEnd(EvernoteExportOperation&) { m_reportedEnd = RunOutcome::End::Imported; }
