// SPDX-License-Identifier: MIT
#include "app/ImportResultSheet.h"

#include "app/ContentSummary.h"
#include "platform/core/LocalizedStrings.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

using platform::localizedString;

namespace {

// In characters of the interface's font.
constexpr int sheetWidth = 84;
constexpr int tableHeight = 12;

int number(quint64 count)
{
    return static_cast<int>(std::min<quint64>(count, std::numeric_limits<int>::max()));
}

// QCoreApplication alone picks the plural.
QString counted(const char* text, quint64 count)
{
    return QCoreApplication::translate("Vupuge", text, nullptr, number(count));
}

struct Totals {
    quint64 imported = 0;
    quint64 skipped = 0;
    quint64 changed = 0;
    quint64 remarks = 0;
    quint64 failedRuns = 0;
};

Totals totalsOf(const std::vector<ImportOutcome>& outcomes)
{
    Totals totals;
    for (const ImportOutcome& outcome : outcomes) {
        totals.imported += outcome.importedItems();
        totals.skipped += outcome.report.skipped.size();
        totals.changed += outcome.report.warnings.size();
        totals.remarks += static_cast<quint64>(outcome.report.remarks.size());
        totals.failedRuns += outcome.end == ImportOutcome::End::Failed ? 1 : 0;
    }
    return totals;
}

QString headingFor(const Totals& totals)
{
    // How many of a failed run came across all the same, nobody tells.
    if (totals.failedRuns > 0 && totals.imported == 0)
        return localizedString("The import did not finish.");
    return counted("%Ln notes were imported.", totals.imported);
}

QStringList summary(const Totals& totals)
{
    QStringList sentences;
    if (totals.failedRuns > 0)
        sentences += localizedString("Some notes may be missing; the log tells more.");
    if (totals.skipped > 0)
        sentences += counted("%Ln notes were skipped.", totals.skipped);
    if (totals.remarks > 0)
        sentences += localizedString("Not everything that the files hold came across.");
    if (totals.changed > 0)
        sentences += counted("There are %Ln remarks on notes that came across.", totals.changed);
    if (sentences.isEmpty() && totals.imported > 0)
        sentences += localizedString("Everything came across.");
    return sentences;
}

QString titleOr(const QString& title, const QString& otherwise)
{
    return title.isEmpty() ? otherwise : title;
}

QString reasonOf(const std::optional<platform::Error>& error)
{
    const QString text = error ? error->localizedDescription() : QString();
    return titleOr(text, localizedString("An unknown error occurred."));
}

} // namespace

bool ImportResultSheet::hasSomethingToSay(const std::vector<ImportOutcome>& outcomes)
{
    return std::any_of(outcomes.begin(), outcomes.end(), [](const ImportOutcome& outcome) {
        return outcome.end == ImportOutcome::End::Imported ||
               (outcome.end == ImportOutcome::End::Failed && !outcome.logPath.isEmpty());
    });
}

void ImportResultSheet::begin(QWidget& window, const std::vector<ImportOutcome>& outcomes,
                              const Environment& environment)
{
    (new ImportResultSheet(window, outcomes, environment))->open();
}

ImportResultSheet::ImportResultSheet(QWidget& window, const std::vector<ImportOutcome>& outcomes,
                                     const Environment& environment)
    : QDialog(&window, Qt::Sheet)
    , m_environment(environment)
{
    setObjectName(QStringLiteral("resultSheet"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(localizedString("Import"));
    const Totals totals = totalsOf(outcomes);

    auto* const heading = new QLabel(headingFor(totals), this);
    heading->setObjectName(QStringLiteral("importedNotes"));
    QFont bold = heading->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.25);
    heading->setFont(bold);
    auto* const text = new QLabel(summary(totals).join(QLatin1Char(' ')), this);
    text->setObjectName(QStringLiteral("summary"));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);

    auto* const layout = new QVBoxLayout(this);
    const int margin = fontMetrics().height();
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(heading);
    layout->addWidget(text);
    auto* const counts = new QLabel(contentSummary(outcomes).join(QLatin1Char('\n')), this);
    counts->setObjectName(QStringLiteral("contentCounts"));
    counts->setTextFormat(Qt::PlainText);
    counts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addWidget(counts);
    if (QTableWidget* const table = newTable(outcomes))
        layout->addWidget(table, 1);
    QString logPath;
    for (const ImportOutcome& outcome : outcomes)
        logPath = titleOr(outcome.logPath, logPath);
    addButtons(logPath, environment.libraryFolder ? environment.libraryFolder() : QString());
    setMinimumWidth(fontMetrics().averageCharWidth() * sheetWidth);
}

QTableWidget* ImportResultSheet::newTable(const std::vector<ImportOutcome>& outcomes)
{
    auto* const table = new QTableWidget(0, 2, this);
    const auto addRow = [this, table](QStyle::StandardPixmap picture, const QString& kind,
                                      const QString& title, const QString& reason) {
        auto* const note = new QTableWidgetItem(style()->standardIcon(picture), title);
        note->setData(Qt::AccessibleTextRole, localizedString("%1: %2").arg(kind, title));
        note->setToolTip(kind);
        const int row = table->rowCount();
        table->insertRow(row);
        table->setItem(row, 0, note);
        table->setItem(row, 1, new QTableWidgetItem(reason.simplified()));
    };
    const QString untitled = localizedString("Untitled");
    for (const ImportOutcome& outcome : outcomes) {
        if (outcome.end == ImportOutcome::End::Failed)
            addRow(QStyle::SP_MessageBoxCritical, localizedString("Not imported"),
                   titleOr(outcome.source, localizedString("Notebooks")), reasonOf(outcome.error));
        for (const ImportReport::SkippedNote& note : outcome.report.skipped)
            addRow(QStyle::SP_MessageBoxWarning, localizedString("Skipped"),
                   titleOr(note.title, untitled), reasonOf(note.error));
    }
    for (const ImportOutcome& outcome : outcomes) {
        for (const QString& remark : outcome.report.remarks)
            addRow(QStyle::SP_MessageBoxWarning, localizedString("Remark"), outcome.source, remark);
        if (outcome.report.isRecognizedAsModern)
            addRow(QStyle::SP_MessageBoxInformation, localizedString("Remark"), outcome.source,
                   localizedString("The file is of today's Evernote and was read whole, so that "
                                   "its dates, tags and tasks came across. The options can turn "
                                   "that off."));
    }
    for (const ImportOutcome& outcome : outcomes) {
        for (const ImportReport::Warning& warning : outcome.report.warnings)
            addRow(QStyle::SP_MessageBoxInformation, localizedString("Remark"),
                   titleOr(warning.title, untitled), warning.text);
    }
    if (table->rowCount() == 0) {
        delete table;
        return nullptr;
    }
    table->setObjectName(QStringLiteral("skippedNotes"));
    table->setAccessibleName(localizedString("Skipped notes and remarks"));
    table->setHorizontalHeaderLabels({localizedString("Note"), localizedString("Reason")});
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->verticalHeader()->hide();
    // Reasons are sentences; none is cut off.
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    for (const int column : {0, 1})
        table->horizontalHeaderItem(column)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->resizeSection(0,
                                             fontMetrics().averageCharWidth() * sheetWidth * 2 / 5);
    table->setMinimumHeight(fontMetrics().height() * tableHeight);
    return table;
}

void ImportResultSheet::addButtons(const QString& logPath, const QString& libraryFolder)
{
    auto* const row = new QHBoxLayout;
    const auto addOpener = [this, row](const char* name, const QString& title,
                                       const QString& path) {
        auto* const button = new QPushButton(title, this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        button->setToolTip(path);
        button->setEnabled(!path.isEmpty() && QFileInfo::exists(path));
        connect(button, &QPushButton::clicked, this, [this, path] {
            if (m_environment.openURL)
                m_environment.openURL(QUrl::fromLocalFile(path));
        });
        row->addWidget(button);
    };
    addOpener("openLog", localizedString("Open &Log"), logPath);
    addOpener("openLibrary", localizedString("Open Li&brary"), libraryFolder);
    row->addStretch();
    auto* const done = new QPushButton(localizedString("&Done"), this);
    done->setObjectName(QStringLiteral("done"));
    done->setDefault(true);
    connect(done, &QPushButton::clicked, this, &QDialog::accept);
    row->addWidget(done);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    done->setFocus();
}
