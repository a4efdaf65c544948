// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

// Draws a cell's check box in the middle of the cell and takes a click anywhere in the cell for a
// click on it.
class CheckBoxDelegate : public QStyledItemDelegate {
public:
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
};
