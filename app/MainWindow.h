// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMainWindow>
#include <QUrl>

#include <functional>

class NotebooksController;
class NotebooksView;
class NotebooksViewDelegate;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;

// The program's window: the notebooks, what is going on, and the actions. What the actions do,
// their owner says.
class MainWindow : public QMainWindow {
public:
    MainWindow(NotebooksController& notebooks, const NotebooksViewDelegate& viewDelegate,
               const QString& exportsFolder);

    [[nodiscard]] QAction& importAction() { return *m_importAction; }
    [[nodiscard]] QAction& importFileAction() { return *m_importFileAction; }
    [[nodiscard]] QAction& optionsAction() { return *m_optionsAction; }
    [[nodiscard]] QAction& releaseNotesAction() { return *m_releaseNotesAction; }
    void setFilesDropped(std::function<void(const QList<QUrl>&)> handler)
    {
        m_filesDropped = std::move(handler);
    }

    void setShowsProgressIndicator(bool shows);
    void setStatusMessage(const QString& message);
    // Without Evernote the notebooks' controls have no use.
    void setListsNotebooks(bool lists);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeActions();
    void makeMenus();
    void makeContents(const NotebooksViewDelegate& viewDelegate, const QString& exportsFolder);
    [[nodiscard]] QWidget* newTopRow(QWidget* parent);
    [[nodiscard]] QWidget* newBottomRow(QWidget* parent);
    void updateContents();
    void showAbout();

    NotebooksController& m_notebooks;
    std::function<void(const QList<QUrl>&)> m_filesDropped;
    QAction* m_importAction = nullptr;
    QAction* m_importFileAction = nullptr;
    QAction* m_optionsAction = nullptr;
    QAction* m_releaseNotesAction = nullptr;
    QAction* m_checkAllAction = nullptr;
    QAction* m_uncheckAllAction = nullptr;
    QAction* m_findAction = nullptr;
    QStackedWidget* m_pages = nullptr;
    NotebooksView* m_table = nullptr;
    QLineEdit* m_searchField = nullptr;
    QProgressBar* m_progressIndicator = nullptr;
    QLabel* m_status = nullptr;
    QWidget* m_topRow = nullptr;
    QPushButton* m_importButton = nullptr;
    QString m_statusMessage;
};
