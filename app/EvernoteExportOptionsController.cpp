// SPDX-License-Identifier: MIT
#include "app/EvernoteExportOptionsController.h"

#include "app/OptionsSheet.h"

#include <utility>

EvernoteExportOptionsController::EvernoteExportOptionsController() = default;

EvernoteExportOptionsController::~EvernoteExportOptionsController()
{
    delete m_sheet;
}

QWidget* EvernoteExportOptionsController::window() const
{
    return m_sheet;
}

void EvernoteExportOptionsController::showSheetOnParentWindow(QWidget& parentWindow,
                                                              CompletionHandler completionHandler)
{
    m_parentWindow = &parentWindow;
    m_completionHandler = std::move(completionHandler);
    // Made anew each time, so that it shows what the settings are now.
    delete m_sheet;
    m_sheet = new OptionsSheet(parentWindow, [this] { closeWindow(); });
    m_sheet->open();
}

void EvernoteExportOptionsController::closeWindow()
{
    if (!m_sheet || !m_sheet->isVisible())
        return;
    m_sheet->done(returnCodeClosed);
    if (const CompletionHandler handler = std::exchange(m_completionHandler, nullptr))
        handler(returnCodeClosed);
}
