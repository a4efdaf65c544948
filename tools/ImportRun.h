// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteExportOperation.h"
#include "tools/ImportSource.h"
#include "tools/ProgressDisplay.h"
#include "tools/RunOutcome.h"

#include <QTimer>

#include <memory>
#include <optional>

// One run from the main thread: queues it, runs the event loop until nothing of it is left, and
// says how it ended.
class ImportRun : private EvernoteExportOperationDelegate {
public:
    ImportRun(const ImportSource& source, const std::shared_ptr<platform::ScriptingBridge>& bridge,
              const RunDirectories& directories, ProgressDisplay& progress);

    [[nodiscard]] RunOutcome run();

    // Asks the run to stop, in the event loop: again and again until it is over, because the
    // conversion may only be queued in between.
    void cancel();

private:
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

    void cancelConversions();
    void beginProgress(quint64 count);

    std::shared_ptr<EvernoteExportOperation> m_operation;
    platform::OperationQueue m_queue;
    ProgressDisplay& m_progress;
    RunOutcome m_outcome;
    // How the run said that it ended, if it did: a cancelled one may end without a word.
    std::optional<RunOutcome::End> m_reportedEnd;
    QTimer m_cancelTimer;
};
