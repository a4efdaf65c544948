// SPDX-License-Identifier: MIT
#include "app/EmptyState.h"

#include "platform/core/LocalizedStrings.h"

#include <QAction>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using platform::localizedString;

namespace {

constexpr int pictureSize = 96;
// In characters of the interface's font: short lines read best.
constexpr int textWidth = 60;

QLabel* newText(const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setFixedWidth(parent->fontMetrics().averageCharWidth() * textWidth);
    return label;
}

} // namespace

EmptyState::EmptyState(QAction& importFile, const QString& exportsFolder)
{
    setObjectName(QStringLiteral("emptyState"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto* const picture = new QLabel(this);
    picture->setPixmap(QIcon(QStringLiteral(":/vupuge/icons/enex-256.png"))
                           .pixmap(QSize(pictureSize, pictureSize)));
    picture->setAlignment(Qt::AlignCenter);

    QLabel* const heading = newText(localizedString("Drop an ENEX file here"), this);
    QFont large = heading->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    heading->setFont(large);

    QLabel* const steps =
        newText(localizedString("In Evernote, choose a notebook, then “Export Notebook…” and the "
                                "format ENEX. Drop the file "
                                "that you get on this window, or choose it here."),
                this);
    auto* const button = new QPushButton(localizedString("Choose ENEX File..."), this);
    button->setObjectName(QStringLiteral("chooseFile"));
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, &importFile, &QAction::trigger);

    // A column in the middle, so that the lines keep their length in a wide window.
    auto* const column = new QVBoxLayout;
    column->setSpacing(fontMetrics().height());
    column->addStretch();
    column->addWidget(picture);
    column->addWidget(heading);
    column->addWidget(steps);
    column->addWidget(button, 0, Qt::AlignHCenter);
    if (!exportsFolder.isEmpty()) {
        QLabel* const folder = newText(
            localizedString("Exported files in the folder “%1” are listed here as notebooks.")
                .arg(exportsFolder),
            this);
        folder->setObjectName(QStringLiteral("exportsFolder"));
        column->addWidget(folder);
    }
    column->addStretch();
    auto* const layout = new QHBoxLayout(this);
    layout->addStretch();
    layout->addLayout(column);
    layout->addStretch();
}
