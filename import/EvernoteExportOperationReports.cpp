// SPDX-License-Identifier: MIT
//
// The reports of EvernoteExportOperation to its delegate.
#include "import/EvernoteExportOperation.h"

#include "foundation/OperationQueueQLExtensions.h"

using platform::Error;

EvernoteExportOperationDelegate::~EvernoteExportOperationDelegate() = default;

void EvernoteExportOperationDelegate::exportOperationWillExportRecordsFromFileAtURL(EvernoteExportOperation&, quint64,
                                                                                    const QUrl&)
{
}

void EvernoteExportOperation::informDelegate(const std::function<void(EvernoteExportOperationDelegate&)>& call)
{
    addOperationWithBlockAndWaitUntilFinished(platform::OperationQueue::mainQueue(), [this, &call] {
        // Read now, because it may have been taken away since the report was queued.
        if (EvernoteExportOperationDelegate* const delegate = m_delegate)
            call(*delegate);
    });
}

void EvernoteExportOperation::informDelegateDidStart()
{
    informDelegate([this](EvernoteExportOperationDelegate& delegate) { delegate.exportOperationDidStart(*this); });
}

void EvernoteExportOperation::informDelegateWillExportRecordsFromNotebook(quint64 count, const QString& name)
{
    informDelegate([&](EvernoteExportOperationDelegate& delegate) {
        delegate.exportOperationWillExportRecordsFromNotebook(*this, count, name);
    });
}

void EvernoteExportOperation::informDelegateDidExportRecord()
{
    informDelegate([this](EvernoteExportOperationDelegate& delegate) { delegate.exportOperationDidExportRecord(*this); });
}

void EvernoteExportOperation::informDelegateDidEncounterError(const std::optional<Error>& error)
{
    log(QStringLiteral("Error: ") + (error ? error->description() : QStringLiteral("(null)")));
    informDelegate([&](EvernoteExportOperationDelegate& delegate) {
        delegate.exportOperationDidEncounterError(*this, error);
    });
}

void EvernoteExportOperation::informDelegateDidCancel()
{
    informDelegate([this](EvernoteExportOperationDelegate& delegate) { delegate.exportOperationDidCancel(*this); });
}

void EvernoteExportOperation::informDelegateDidEnd()
{
    informDelegate([this](EvernoteExportOperationDelegate& delegate) { delegate.exportOperationDidEnd(*this); });
}
