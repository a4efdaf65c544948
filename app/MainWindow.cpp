// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include "app/EmptyState.h"
#include "app/EnexFiles.h"
#include "app/NotebooksController.h"
#include "app/NotebooksView.h"
#include "platform/core/Bundle.h"
#include "platform/core/LocalizedStrings.h"

#include <QAction>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using platform::localizedString;

namespace {

// In characters of the interface's font, so that the window grows with it.
constexpr int windowWidth = 96;
constexpr int windowHeight = 34;
constexpr int searchFieldWidth = 28;
constexpr int indicatorWidth = 12;

QPushButton* newButton(QAction& action, const char* name, QWidget* parent)
{
    auto* const button = new QPushButton(action.text(), parent);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(action.toolTip());
    button->setEnabled(action.isEnabled());
    QObject::connect(button, &QPushButton::clicked, &action, &QAction::trigger);
    QObject::connect(&action, &QAction::enabledChanged, button, &QWidget::setEnabled);
    return button;
}

QString countText(const std::vector<NotebookRow>& rows)
{
    int notebooks = 0;
    int notes = 0;
    for (const NotebookRow& row : rows) {
        if (!row.import)
            continue;
        ++notebooks;
        notes += static_cast<int>(row.numberOfNotes);
    }
    // Two counts need two texts: each has a plural of its own.
    const QString first =
        QCoreApplication::translate("Vupuge", "%Ln notebooks checked", nullptr, notebooks);
    const QString second = QCoreApplication::translate("Vupuge", "%Ln notes", nullptr, notes);
    return localizedString("%1, %2").arg(first, second);
}

} // namespace

MainWindow::MainWindow(NotebooksController& notebooks, const NotebooksViewDelegate& viewDelegate,
                       const QString& exportsFolder)
    : m_notebooks(notebooks)
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(localizedString("Vupuge"));
    setAcceptDrops(true);
    makeActions();
    makeMenus();
    makeContents(viewDelegate, exportsFolder);
    resize(fontMetrics().averageCharWidth() * windowWidth, fontMetrics().height() * windowHeight);
    const auto update = [this] {
        updateContents();
    };
    connect(&notebooks, &QAbstractItemModel::dataChanged, this, update);
    connect(&notebooks, &QAbstractItemModel::rowsInserted, this, update);
    connect(&notebooks, &QAbstractItemModel::rowsRemoved, this, update);
    updateContents();
}

void MainWindow::makeActions()
{
    const auto newAction = [this](const char* name, const QString& text,
                                  const QKeySequence& shortcut) {
        auto* const action = new QAction(text, this);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(shortcut);
        return action;
    };
    m_importAction = newAction("import", localizedString("&Import"), Qt::CTRL | Qt::Key_I);
    m_importFileAction =
        newAction("importFile", localizedString("Import ENEX Fi&le..."), QKeySequence::Open);
    m_optionsAction =
        newAction("options", localizedString("&Options..."), Qt::CTRL | Qt::Key_Comma);
    m_releaseNotesAction = newAction("releaseNotes", localizedString("&Release Notes"), {});
    m_checkAllAction =
        newAction("checkAll", localizedString("&Check All Notebooks"), QKeySequence::SelectAll);
    m_uncheckAllAction = newAction("uncheckAll", localizedString("&Uncheck All Notebooks"),
                                   Qt::CTRL | Qt::SHIFT | Qt::Key_A);
    m_findAction = newAction("find", localizedString("&Find Notebook"), QKeySequence::Find);
    connect(m_checkAllAction, &QAction::triggered, this,
            [this] { m_notebooks.setImportOfShown(true); });
    connect(m_uncheckAllAction, &QAction::triggered, this,
            [this] { m_notebooks.setImportOfShown(false); });
    connect(m_findAction, &QAction::triggered, this, [this] {
        m_searchField->setFocus(Qt::ShortcutFocusReason);
        m_searchField->selectAll();
    });
}

void MainWindow::makeMenus()
{
    QMenu* const file = menuBar()->addMenu(localizedString("&File"));
    file->addActions({m_importAction, m_importFileAction});
    file->addSeparator();
    QAction* const quit =
        file->addAction(localizedString("&Quit"), QKeySequence::Quit, this, [this] { close(); });
    quit->setObjectName(QStringLiteral("quit"));
    quit->setMenuRole(QAction::QuitRole);

    QMenu* const edit = menuBar()->addMenu(localizedString("&Edit"));
    edit->addActions({m_checkAllAction, m_uncheckAllAction});
    edit->addSeparator();
    edit->addAction(m_findAction);
    edit->addSeparator();
    edit->addAction(m_optionsAction);

    QMenu* const help = menuBar()->addMenu(localizedString("&Help"));
    help->addAction(m_releaseNotesAction);
    QAction* const about =
        help->addAction(localizedString("&About Vupuge"), this, [this] { showAbout(); });
    about->setObjectName(QStringLiteral("about"));
    about->setMenuRole(QAction::AboutRole);
}

void MainWindow::makeContents(const NotebooksViewDelegate& viewDelegate,
                              const QString& exportsFolder)
{
    auto* const contents = new QWidget(this);
    m_table = new NotebooksView(m_notebooks, viewDelegate);
    m_pages = new QStackedWidget(contents);
    m_pages->addWidget(new EmptyState(*m_importFileAction, exportsFolder));
    m_pages->addWidget(m_table);
    auto* const layout = new QVBoxLayout(contents);
    m_topRow = newTopRow(contents);
    layout->addWidget(m_topRow);
    layout->addWidget(m_pages, 1);
    layout->addWidget(newBottomRow(contents));
    setCentralWidget(contents);
}

QWidget* MainWindow::newTopRow(QWidget* parent)
{
    auto* const row = new QWidget(parent);
    auto* const title = new QLabel(localizedString("&Notebooks to import:"), row);
    title->setBuddy(m_table);
    m_searchField = new QLineEdit(row);
    m_searchField->setObjectName(QStringLiteral("search"));
    m_searchField->setPlaceholderText(localizedString("Search"));
    m_searchField->setAccessibleName(localizedString("Search notebooks by name"));
    m_searchField->setClearButtonEnabled(true);
    m_searchField->setMinimumWidth(fontMetrics().averageCharWidth() * searchFieldWidth);
    connect(m_searchField, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_notebooks.setSearchedText(text);
        updateContents();
    });
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title);
    layout->addStretch();
    layout->addWidget(m_searchField);
    return row;
}

QWidget* MainWindow::newBottomRow(QWidget* parent)
{
    auto* const row = new QWidget(parent);
    m_progressIndicator = new QProgressBar(row);
    m_progressIndicator->setObjectName(QStringLiteral("progressIndicator"));
    m_progressIndicator->setAccessibleName(localizedString("Loading notebooks"));
    m_progressIndicator->setRange(0, 0);
    m_progressIndicator->setTextVisible(false);
    m_progressIndicator->setFixedWidth(fontMetrics().averageCharWidth() * indicatorWidth);
    m_progressIndicator->hide();
    m_status = new QLabel(row);
    m_status->setObjectName(QStringLiteral("status"));
    m_status->setTextFormat(Qt::PlainText);
    QPushButton* const importFile = newButton(*m_importFileAction, "importFileButton", row);
    m_importButton = newButton(*m_importAction, "importButton", row);
    m_importButton->setDefault(true);
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_progressIndicator);
    layout->addWidget(m_status, 1);
    layout->addWidget(newButton(*m_optionsAction, "optionsButton", row));
    layout->addWidget(importFile);
    layout->addWidget(m_importButton);
    return row;
}

void MainWindow::setShowsProgressIndicator(bool shows)
{
    m_progressIndicator->setVisible(shows);
}

void MainWindow::setStatusMessage(const QString& message)
{
    m_statusMessage = message;
    updateContents();
}

void MainWindow::setListsNotebooks(bool lists)
{
    m_topRow->setVisible(lists);
    m_importButton->setVisible(lists);
    for (QAction* const action :
         {m_importAction, m_checkAllAction, m_uncheckAllAction, m_findAction})
        action->setVisible(lists);
}

void MainWindow::updateContents()
{
    const auto* const model = static_cast<NotebooksModel*>(m_notebooks.sourceModel());
    const bool hasNotebooks = !model->rows().empty();
    m_pages->setCurrentIndex(hasNotebooks ? 1 : 0);
    m_searchField->setEnabled(hasNotebooks);
    if (m_statusMessage.isEmpty() && hasNotebooks)
        m_status->setText(countText(model->rows()));
    else
        m_status->setText(m_statusMessage);
}

void MainWindow::showAbout()
{
    auto* const box = new QMessageBox(this);
    box->setObjectName(QStringLiteral("aboutSheet"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowFlag(Qt::Sheet);
    box->setWindowTitle(localizedString("Vupuge"));
    box->setIconPixmap(windowIcon().pixmap(QSize(64, 64)));
    box->setText(localizedString("Vupuge %1").arg(platform::Bundle::main().shortVersionString()));
    box->setInformativeText(localizedString("Brings Evernote notes into Quillery."));
    box->addButton(localizedString("OK"), QMessageBox::AcceptRole);
    box->open();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (mayHoldEnexFiles(event->mimeData()->urls()))
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    if (m_filesDropped)
        m_filesDropped(event->mimeData()->urls());
}
