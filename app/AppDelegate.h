// SPDX-License-Identifier: MIT
#pragma once

#include "app/Environment.h"
#include "app/ImportOutcome.h"
#include "app/NotebooksController.h"
#include "app/NotebooksView.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

#include <memory>
#include <vector>

class EvernoteExportOptionsController;
class EvernoteExportPanel;
class MainWindow;

// Controls the program's one window: connects to Evernote, lists its notebooks, and hands the
// imports that the person asks for to the progress panel. All of it on the main thread.
class AppDelegate : public NotebooksViewDelegate {
public:
    explicit AppDelegate(Environment environment);
    ~AppDelegate() override;

    // Shows the window and connects to Evernote. Without a recent enough Evernote the application
    // ends after an alert.
    void applicationDidFinishLaunching();
    // Imports what was dropped on the icon or given on the command line, one file after another.
    void openURLs(const QList<QUrl>& urls);

    void startImport();
    void importENEXFile();
    void showOptions();
    void showReleaseNotes();

    // The model of the table, in an order of its own, whatever the table shows.
    [[nodiscard]] const std::vector<NotebookRow>& notebooks() { return model().rows(); }
    [[nodiscard]] int countOfNotebooks() { return model().rowCount(); }
    [[nodiscard]] const NotebookRow& objectInNotebooksAtIndex(int index);
    void insertObjectInNotebooksAtIndex(const NotebookRow& row, int index)
    {
        model().insertRow(index, row);
    }
    void removeObjectFromNotebooksAtIndex(int index) { model().removeRow(index); }
    void replaceObjectInNotebooksAtIndexWithObject(int index, const NotebookRow& row)
    {
        model().replaceRow(index, row);
    }

    // Notebooks are being loaded.
    [[nodiscard]] bool showProgressIndicator() const { return m_showProgressIndicator; }
    // Empty when idle.
    [[nodiscard]] const QString& statusMessage() const { return m_statusMessage; }
    [[nodiscard]] NotebooksController& notebooksController() { return *m_notebooksController; }
    [[nodiscard]] MainWindow& window() { return *m_window; }
    // Made on first use.
    [[nodiscard]] EvernoteExportPanel& exportPanel();
    [[nodiscard]] EvernoteExportOptionsController& optionsController();

    // Never; only the check box of a row reacts to the mouse.
    [[nodiscard]] bool tableViewShouldSelectRow(int row) const override;
    [[nodiscard]] bool tableViewShouldTrackCellForTableColumnRow(const QString& column,
                                                                 int row) const override;

private:
    [[nodiscard]] NotebooksModel& model();
    void setShowProgressIndicator(bool shows);
    void setStatusMessage(const QString& message);
    [[nodiscard]] bool connectToEvernote();
    void refuseToRun(const QString& message);
    void checkForNotebooks();
    void importNextFile();
    void runDidEnd(const ImportOutcome& outcome);

    Environment m_environment;
    std::unique_ptr<NotebooksModel> m_notebooks;
    std::unique_ptr<NotebooksController> m_notebooksController;
    std::unique_ptr<MainWindow> m_window;
    std::shared_ptr<platform::EvernoteApplication> m_evernoteApp;
    bool m_showProgressIndicator = false;
    QString m_statusMessage;
    bool m_isTerminating = false;
    std::unique_ptr<EvernoteExportPanel> m_exportPanel;
    std::unique_ptr<EvernoteExportOptionsController> m_optionsController;

    QList<QUrl> m_waitingFiles;
    std::vector<ImportOutcome> m_outcomes;
    // What waits for a timer is dropped with it.
    std::unique_ptr<QObject> m_timerContext;
};
