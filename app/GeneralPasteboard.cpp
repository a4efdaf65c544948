// SPDX-License-Identifier: MIT
#include "app/GeneralPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

platform::Pasteboard generalPasteboard()
{
    const QMimeData* const offered = QGuiApplication::clipboard()->mimeData();
    return offered ? platform::Pasteboard(*offered) : platform::Pasteboard();
}

void setGeneralPasteboard(const platform::Pasteboard& pasteboard)
{
    QGuiApplication::clipboard()->setMimeData(pasteboard.mimeData().release());
}
