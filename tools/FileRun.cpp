// SPDX-License-Identifier: MIT
#include "tools/FileRun.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>

#include <thread>

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
    m_progress.end();
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
}

void FileRun::exportOperationDidStart(EvernoteExportOperation&) {}

void FileRun::exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation&, quint64, const QString&) {}

void FileRun::exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation&, quint64 count, const QUrl&)
{
    m_progress.begin(m_outcome.file, count);
}

void FileRun::exportOperationDidExportRecord(EvernoteExportOperation& operation)
{
    m_progress.advance();
    // A cancel during the counting found no conversion to stop.
    if (operation.isCancelled())
        m_operation->parserQueue().cancelAllOperations();
}

void FileRun::exportOperationDidEncounterError(EvernoteExportOperation&, const std::optional<platform::Error>& error)
{
    m_outcome.end = RunOutcome::End::Failed;
    if (!m_outcome.error)
        m_outcome.error = error;
}

void FileRun::exportOperationDidCancel(EvernoteExportOperation&) { m_outcome.end = RunOutcome::End::Cancelled; }

void FileRun::exportOperationDidEnd(EvernoteExportOperation&) { m_outcome.end = RunOutcome::End::Imported; }
