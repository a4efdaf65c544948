// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

// The sheet of a run: two lines of text, a bar and a button. It does not close itself: closing it
// by any means is a request to cancel, or, when nothing runs any more, to dismiss it.
class ProgressSheet : public QDialog {
public:
    ProgressSheet(QWidget* parent, std::function<void()> cancel, std::function<void()> dismiss);

    void setTitleMessage(const QString& message);
    void setInformationMessage(const QString& message);
    void setIndeterminate();
    void setProgress(quint64 value, quint64 maximum);

    // Offers to close a sheet that nothing will close any more.
    void offerDismissal(const QString& buttonTitle);
    void withdrawDismissal();

    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::function<void()> m_cancel;
    std::function<void()> m_dismiss;
    QLabel* m_title;
    QLabel* m_information;
    QProgressBar* m_bar;
    QPushButton* m_cancelButton;
    QPushButton* m_dismissButton;
};
