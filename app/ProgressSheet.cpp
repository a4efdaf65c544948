// SPDX-License-Identifier: MIT
#include "app/ProgressSheet.h"

#include "platform/core/LocalizedStrings.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <limits>

using platform::localizedString;

namespace {

// In characters of the interface's font.
constexpr int sheetWidth = 64;

QLabel* newLine(const char* name, QWidget* parent)
{
    auto* const line = new QLabel(parent);
    line->setObjectName(QLatin1String(name));
    // Names of notebooks and files stand in it.
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    return line;
}

} // namespace

ProgressSheet::ProgressSheet(QWidget* parent, std::function<void()> cancel,
                             std::function<void()> dismiss)
    : QDialog(parent, Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_cancel(std::move(cancel))
    , m_dismiss(std::move(dismiss))
    , m_title(newLine("titleMessage", this))
    , m_information(newLine("informationMessage", this))
    , m_bar(new QProgressBar(this))
    , m_cancelButton(new QPushButton(localizedString("Cancel"), this))
    , m_dismissButton(new QPushButton(this))
{
    setObjectName(QStringLiteral("progressSheet"));
    setWindowTitle(localizedString("Import"));
    setWindowModality(Qt::WindowModal);
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    m_bar->setObjectName(QStringLiteral("exportProgress"));
    m_bar->setAccessibleName(localizedString("Progress"));
    m_bar->setTextVisible(false);
    m_cancelButton->setObjectName(QStringLiteral("cancel"));
    m_cancelButton->setAutoDefault(false);
    m_dismissButton->setObjectName(QStringLiteral("dismiss"));
    m_dismissButton->hide();
    connect(m_cancelButton, &QPushButton::clicked, this, [this] { m_cancel(); });
    connect(m_dismissButton, &QPushButton::clicked, this, [this] { m_dismiss(); });

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancelButton);
    buttons->addWidget(m_dismissButton);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_bar);
    layout->addWidget(m_information);
    layout->addStretch();
    layout->addLayout(buttons);
    const int margin = fontMetrics().height();
    layout->setContentsMargins(margin, margin, margin, margin);
    setMinimumWidth(fontMetrics().averageCharWidth() * sheetWidth);
}

void ProgressSheet::setTitleMessage(const QString& message)
{
    m_title->setText(message);
}

// A blank keeps the line's height when there is nothing to say, so that the sheet does not jump.
void ProgressSheet::setInformationMessage(const QString& message)
{
    m_information->setText(message.isEmpty() ? QStringLiteral(" ") : message);
}

void ProgressSheet::setIndeterminate()
{
    m_bar->setRange(0, 0);
}

void ProgressSheet::setProgress(quint64 value, quint64 maximum)
{
    const auto bounded = [](quint64 number) {
        return static_cast<int>(std::min<quint64>(number, std::numeric_limits<int>::max()));
    };
    // A bar from 0 to 0 would move for ever; nothing to do is all done.
    m_bar->setRange(0, std::max(1, bounded(maximum)));
    m_bar->setValue(maximum == 0 ? 1 : bounded(value));
}

void ProgressSheet::offerDismissal(const QString& buttonTitle)
{
    // Nothing moves any more.
    if (m_bar->maximum() == 0)
        setProgress(0, 1);
    m_dismissButton->setText(buttonTitle);
    m_dismissButton->show();
    m_dismissButton->setDefault(true);
    m_dismissButton->setFocus();
}

void ProgressSheet::withdrawDismissal()
{
    m_dismissButton->hide();
}

void ProgressSheet::reject()
{
    if (m_dismissButton->isHidden())
        m_cancel();
    else
        m_dismiss();
}

void ProgressSheet::closeEvent(QCloseEvent* event)
{
    event->ignore();
    reject();
}
