// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>

#include <functional>

class OptionsSheet;
class QWidget;

// The sheet with the import's options. They take effect as they are changed, with the next run.
class EvernoteExportOptionsController {
public:
    static constexpr int returnCodeClosed = 1;
    // Hears the return code when the sheet has closed.
    using CompletionHandler = std::function<void(int returnCode)>;

    EvernoteExportOptionsController();
    ~EvernoteExportOptionsController();

    void showSheetOnParentWindow(QWidget& parentWindow, CompletionHandler completionHandler);
    void closeWindow();

    // Null until it is shown.
    [[nodiscard]] QWidget* window() const;

private:
    QPointer<QWidget> m_parentWindow;
    QPointer<OptionsSheet> m_sheet;
    CompletionHandler m_completionHandler;
};
