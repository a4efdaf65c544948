// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <functional>
#include <vector>

class OptionsPage;
class QTabWidget;

// The options, page by page. It does not close itself; closing it by any means is a request.
class OptionsSheet : public QDialog {
public:
    OptionsSheet(QWidget& window, std::function<void()> close);

    void reject() override { m_close(); }

private:
    void addPage(OptionsPage* page, const QString& title);

    std::function<void()> m_close;
    QTabWidget* m_tabs;
    std::vector<OptionsPage*> m_pages;
};
