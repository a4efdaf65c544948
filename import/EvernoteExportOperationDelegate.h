// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>
#include <QUrl>

#include <optional>

class EvernoteExportOperation;

// Hears of a run's progress. Every call arrives on the main thread while the run waits for its return.
class EvernoteExportOperationDelegate {
public:
    virtual ~EvernoteExportOperationDelegate();

    // No run reports its start; who creates it knows.
    virtual void exportOperationDidStart(EvernoteExportOperation& operation) = 0;
    // A notebook with that many notes is about to be converted.
    virtual void exportOperationWillExportRecordsFromNotebook(EvernoteExportOperation& operation, quint64 count,
                                                              const QString& name)
        = 0;
    // That many notes of an ENEX file are about to be converted. A delegate need not care.
    virtual void exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation& operation, quint64 count,
                                                               const QUrl& url);
    // One note has been handled: converted or skipped.
    virtual void exportOperationDidExportRecord(EvernoteExportOperation& operation) = 0;
    // The run or a step of it failed. It may come twice for one failure, and without an error.
    virtual void exportOperationDidEncounterError(EvernoteExportOperation& operation,
                                                  const std::optional<platform::Error>& error)
        = 0;
    virtual void exportOperationDidCancel(EvernoteExportOperation& operation) = 0;
    // The run is over and the notes application has been asked to import its manifest.
    virtual void exportOperationDidEnd(EvernoteExportOperation& operation) = 0;
};
