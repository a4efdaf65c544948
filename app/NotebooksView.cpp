// SPDX-License-Identifier: MIT
#include "app/NotebooksView.h"

#include "app/CheckBoxDelegate.h"
#include "app/ImportColumnHeader.h"
#include "app/NotebooksController.h"
#include "platform/core/LocalizedStrings.h"

#include <QKeyEvent>
#include <QMouseEvent>

using platform::localizedString;

NotebooksViewDelegate::~NotebooksViewDelegate() = default;

NotebooksView::NotebooksView(NotebooksController& controller, const NotebooksViewDelegate& delegate)
    : m_controller(controller)
    , m_delegate(delegate)
{
    setObjectName(QStringLiteral("notebooks"));
    setAccessibleName(localizedString("Notebooks"));
    setHorizontalHeader(new ImportColumnHeader(controller));
    auto* const boxes = new CheckBoxDelegate;
    boxes->setParent(this);
    setItemDelegateForColumn(NotebooksModel::ImportColumn, boxes);
    setModel(&controller);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    verticalHeader()->hide();
    QHeaderView& head = *horizontalHeader();
    head.setStretchLastSection(false);
    head.setMinimumSectionSize(fontMetrics().height() * 2);
    head.setSectionResizeMode(NotebooksModel::ImportColumn, QHeaderView::Fixed);
    head.setSectionResizeMode(NotebooksModel::NameColumn, QHeaderView::Stretch);
    head.setSectionResizeMode(NotebooksModel::NumberOfNotesColumn, QHeaderView::ResizeToContents);
    head.resizeSection(NotebooksModel::ImportColumn, fontMetrics().height() * 2);
    head.setToolTip(
        localizedString("The box in the first column checks or unchecks all notebooks shown."));
    connect(&head, &QHeaderView::sectionClicked, this, [this](int section) {
        if (section == NotebooksModel::ImportColumn)
            toggleAll();
    });
}

void NotebooksView::toggleAll()
{
    m_controller.setImportOfShown(m_controller.importState() != Qt::Checked);
}

bool NotebooksView::tracksMouseAt(const QPoint& place) const
{
    const QModelIndex index = indexAt(place);
    return index.isValid() && m_delegate.tableViewShouldTrackCellForTableColumnRow(
                                  NotebooksModel::identifierOfColumn(index.column()), index.row());
}

void NotebooksView::mousePressEvent(QMouseEvent* event)
{
    if (tracksMouseAt(event->position().toPoint()))
        QTableView::mousePressEvent(event);
}

void NotebooksView::mouseReleaseEvent(QMouseEvent* event)
{
    if (tracksMouseAt(event->position().toPoint()))
        QTableView::mouseReleaseEvent(event);
}

void NotebooksView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The second click of two is a click like the first: the box goes back to what it was.
    mousePressEvent(event);
}

void NotebooksView::keyPressEvent(QKeyEvent* event)
{
    const bool isSpace = event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier;
    if (!isSpace || !currentIndex().isValid()) {
        QTableView::keyPressEvent(event);
        return;
    }
    const QModelIndex box = currentIndex().siblingAtColumn(NotebooksModel::ImportColumn);
    const bool checked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    m_controller.setData(box, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    event->accept();
}

QItemSelectionModel::SelectionFlags NotebooksView::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* event) const
{
    if (index.isValid() && m_delegate.tableViewShouldSelectRow(index.row()))
        return QTableView::selectionCommand(index, event);
    return QItemSelectionModel::NoUpdate;
}
