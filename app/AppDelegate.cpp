// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/Alert.h"
#include "app/EnexFiles.h"
#include "app/EnexOpenPanel.h"
#include "app/EvernoteExportOptionsController.h"
#include "app/EvernoteExportPanel.h"
#include "app/ImportResultSheet.h"
#include "app/MainWindow.h"
#include "app/ReleaseNotes.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/NumericText.h"
#include "platform/defaults/UserDefaults.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QTimer>

#include <chrono>

using platform::localizedString;
using namespace std::chrono_literals;

namespace {

constexpr auto firstCheck = 1000ms;
// Evernote lists nothing while it is starting.
constexpr auto nextCheck = 500ms;

// By the numbers alone: 4.6 and 3.5 pass, 4.1 and 3.0 do not, every 5.x does.
bool isRecentEnough(const QString& version)
{
    const QStringList pieces = version.split(QLatin1Char('.'));
    const qint64 major = platform::integerValue(pieces.value(0));
    const qint64 minor = platform::integerValue(pieces.value(1));
    return !(major <= 4 && minor <= 1);
}

} // namespace

AppDelegate::AppDelegate(Environment environment)
    : m_environment(std::move(environment))
    , m_notebooksController(std::make_unique<NotebooksController>(model()))
    , m_window(
          std::make_unique<MainWindow>(*m_notebooksController, *this, m_environment.exportsFolder))
    , m_timerContext(std::make_unique<QObject>())
{
    QObject::connect(&m_window->importAction(), &QAction::triggered, m_timerContext.get(),
                     [this] { startImport(); });
    QObject::connect(&m_window->importFileAction(), &QAction::triggered, m_timerContext.get(),
                     [this] { importENEXFile(); });
    QObject::connect(&m_window->optionsAction(), &QAction::triggered, m_timerContext.get(),
                     [this] { showOptions(); });
    QObject::connect(&m_window->releaseNotesAction(), &QAction::triggered, m_timerContext.get(),
                     [this] { showReleaseNotes(); });
    m_window->setFilesDropped([this](const QList<QUrl>& urls) { openURLs(urls); });
    m_window->setListsNotebooks(m_environment.evernote != nullptr);
}

AppDelegate::~AppDelegate() = default;

NotebooksModel& AppDelegate::model()
{
    if (!m_notebooks)
        m_notebooks = std::make_unique<NotebooksModel>();
    return *m_notebooks;
}

const NotebookRow& AppDelegate::objectInNotebooksAtIndex(int index)
{
    return model().rows()[static_cast<std::size_t>(index)];
}

EvernoteExportPanel& AppDelegate::exportPanel()
{
    if (!m_exportPanel) {
        m_exportPanel = std::make_unique<EvernoteExportPanel>(m_environment);
        m_exportPanel->setRunDidEnd([this](const ImportOutcome& outcome) { runDidEnd(outcome); });
    }
    return *m_exportPanel;
}

EvernoteExportOptionsController& AppDelegate::optionsController()
{
    if (!m_optionsController)
        m_optionsController = std::make_unique<EvernoteExportOptionsController>();
    return *m_optionsController;
}

void AppDelegate::setShowProgressIndicator(bool shows)
{
    m_showProgressIndicator = shows;
    m_window->setShowsProgressIndicator(shows);
}

void AppDelegate::setStatusMessage(const QString& message)
{
    m_statusMessage = message;
    m_window->setStatusMessage(message);
}

void AppDelegate::applicationDidFinishLaunching()
{
    const QRect screen = m_window->screen()->availableGeometry();
    m_window->move(screen.center() - m_window->rect().center());
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    if (!m_environment.evernote || !connectToEvernote())
        return;
    setStatusMessage(localizedString("Getting notebook names..."));
    QTimer::singleShot(firstCheck, m_timerContext.get(), [this] { checkForNotebooks(); });
}

bool AppDelegate::connectToEvernote()
{
    setShowProgressIndicator(true);
    setStatusMessage(localizedString("Initializing Evernote..."));
    m_evernoteApp = m_environment.evernote();
    if (!m_evernoteApp) {
        refuseToRun(localizedString("Unable to find the Evernote application."));
        return false;
    }
    if (!isRecentEnough(m_evernoteApp->version())) {
        refuseToRun(localizedString("Evernote 5.2.0 or later is required."));
        return false;
    }
    return true;
}

void AppDelegate::refuseToRun(const QString& message)
{
    runModalAlert({message,
                   localizedString(
                       "Please ensure the latest version of Evernote is installed and try again."),
                   localizedString("Quit")},
                  m_window.get());
    m_isTerminating = true;
    QCoreApplication::quit();
}

void AppDelegate::checkForNotebooks()
{
    const std::vector<std::shared_ptr<platform::EvernoteNotebook>> listed =
        m_evernoteApp->notebooks();
    if (listed.empty()) {
        QTimer::singleShot(nextCheck, m_timerContext.get(), [this] { checkForNotebooks(); });
        return;
    }
    for (const auto& notebook : listed) {
        const QString name = notebook->name();
        if (name.isEmpty())
            continue;
        const auto error = notebook->problem();
        const QString problem = error ? error->localizedDescription() : QString();
        // One that cannot be read would end an import of all the others.
        insertObjectInNotebooksAtIndex(
            {name, problem.isEmpty(), notebook, notebook->numberOfNotes(), problem}, 0);
    }
    setShowProgressIndicator(false);
    setStatusMessage({});
}

void AppDelegate::startImport()
{
    if (m_showProgressIndicator) {
        if (m_environment.beep)
            m_environment.beep();
        return;
    }
    std::vector<std::shared_ptr<platform::EvernoteNotebook>> checked;
    for (const NotebookRow& row : notebooks()) {
        if (row.import)
            checked.push_back(row.notebook);
    }
    if (checked.empty()) {
        beginAlertSheet({localizedString("No notebooks selected!"),
                         localizedString("Select the notebooks to import and try again."),
                         {}},
                        *m_window);
        return;
    }
    m_waitingFiles.clear();
    m_outcomes.clear();
    exportPanel().setDismissalTitle(localizedString("Close"));
    exportPanel().showSheetOnWindowToExportFromApp(*m_window, m_evernoteApp, checked, nullptr);
}

void AppDelegate::importENEXFile()
{
    auto* const panel = new EnexOpenPanel(m_window.get());
    panel->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(panel, &QFileDialog::accepted, m_timerContext.get(), [this, panel] {
        const QList<QUrl> chosen = panel->selectedUrls();
        const auto modernFiles = panel->modernFiles(chosen.value(0));
        // The panel is still closing; a sheet in its place must wait for that.
        QTimer::singleShot(0, m_timerContext.get(), [this, chosen, modernFiles] {
            m_waitingFiles = chosen;
            m_outcomes.clear();
            exportPanel().setModernFiles(modernFiles);
            importNextFile();
        });
    });
    panel->open();
}

void AppDelegate::openURLs(const QList<QUrl>& urls)
{
    if (urls.isEmpty() || m_isTerminating)
        return;
    m_waitingFiles = enexFilesAmong(urls);
    m_outcomes.clear();
    if (m_waitingFiles.isEmpty()) {
        beginAlertSheet(
            {localizedString("There is no ENEX file to import."),
             localizedString("Export notes from Evernote in the format ENEX and try again."),
             {}},
            *m_window);
        return;
    }
    // Nobody was asked, so a file is what it shows itself to be, unless the person has decided it
    // for all files.
    using ModernFiles = EvernoteXMLFileExportOperation::ModernFiles;
    const bool isDecided =
        platform::UserDefaults::standard().objectForKey(QStringLiteral("ModernENEX")).isValid();
    exportPanel().setModernFiles(isDecided ? ModernFiles::BySetting : ModernFiles::Recognized);
    importNextFile();
}

void AppDelegate::importNextFile()
{
    if (m_waitingFiles.isEmpty())
        return;
    const QUrl file = m_waitingFiles.takeFirst();
    EvernoteExportPanel& panel = exportPanel();
    panel.setDismissalTitle(m_waitingFiles.isEmpty() ? localizedString("Close")
                                                     : localizedString("Next File"));
    if (!panel.showSheetOnWindowToExportFromFile(*m_window, file, nullptr))
        m_waitingFiles.clear();
}

void AppDelegate::runDidEnd(const ImportOutcome& outcome)
{
    m_outcomes.push_back(outcome);
    if (outcome.end == ImportOutcome::End::Cancelled)
        m_waitingFiles.clear();
    if (!m_waitingFiles.isEmpty()) {
        importNextFile();
        return;
    }
    if (ImportResultSheet::hasSomethingToSay(m_outcomes))
        ImportResultSheet::begin(*m_window, m_outcomes, m_environment);
}

void AppDelegate::showOptions()
{
    optionsController().showSheetOnParentWindow(*m_window, nullptr);
}

void AppDelegate::showReleaseNotes()
{
    if (m_environment.openURL)
        m_environment.openURL(releaseNotesAddress());
}

bool AppDelegate::tableViewShouldSelectRow(int) const
{
    return false;
}

bool AppDelegate::tableViewShouldTrackCellForTableColumnRow(const QString& column, int) const
{
    return column == NotebooksModel::identifierOfColumn(NotebooksModel::ImportColumn);
}
