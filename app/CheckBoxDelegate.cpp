// SPDX-License-Identifier: MIT
#include "app/CheckBoxDelegate.h"

#include "app/CheckBoxDrawing.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

bool isSwitch(const QEvent& event)
{
    if (event.type() == QEvent::MouseButtonRelease)
        return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton;
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Space || key == Qt::Key_Select;
}

} // namespace

void CheckBoxDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QWidget* const view = option.widget;
    const QStyle& style = view ? *view->style() : *QApplication::style();
    const Qt::CheckState state = cell.checkState;
    // The cell itself first, with its focus frame, but without the box at its side.
    cell.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, view);

    drawCheckBox(cell, state, *painter, view);
}

bool CheckBoxDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem&, const QModelIndex& index)
{
    if (!isSwitch(*event))
        return event->type() == QEvent::MouseButtonPress ||
               event->type() == QEvent::MouseButtonDblClick;
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}
