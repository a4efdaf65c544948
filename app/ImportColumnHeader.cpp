// SPDX-License-Identifier: MIT
#include "app/ImportColumnHeader.h"

#include "app/CheckBoxDrawing.h"
#include "app/NotebooksController.h"

#include <QPainter>
#include <QStyleOptionButton>

ImportColumnHeader::ImportColumnHeader(NotebooksController& controller)
    : QHeaderView(Qt::Horizontal)
    , m_controller(controller)
{
    setSectionsClickable(true);
    setHighlightSections(false);
    const auto repaint = [this] {
        viewport()->update();
    };
    connect(&controller, &QAbstractItemModel::dataChanged, this, repaint);
    connect(&controller, &QAbstractItemModel::rowsInserted, this, repaint);
    connect(&controller, &QAbstractItemModel::rowsRemoved, this, repaint);
}

void ImportColumnHeader::paintSection(QPainter* painter, const QRect& place, int section) const
{
    painter->save();
    QHeaderView::paintSection(painter, place, section);
    painter->restore();
    if (section != NotebooksModel::ImportColumn)
        return;
    QStyleOptionButton box;
    box.initFrom(this);
    box.rect = place;
    drawCheckBox(box, m_controller.importState(), *painter, this);
}
