// SPDX-License-Identifier: MIT
#include "app/CheckBoxDrawing.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionButton>

namespace {

QStyle::State styleState(Qt::CheckState state)
{
    switch (state) {
    case Qt::Checked:
        return QStyle::State_On;
    case Qt::PartiallyChecked:
        return QStyle::State_NoChange;
    case Qt::Unchecked:
        break;
    }
    return QStyle::State_Off;
}

} // namespace

void drawCheckBox(const QStyleOption& option, Qt::CheckState state, QPainter& painter,
                  const QWidget* widget)
{
    const QStyle& style = widget ? *widget->style() : *QApplication::style();
    QStyleOptionButton box;
    static_cast<QStyleOption&>(box) = option;
    box.state = (option.state & (QStyle::State_Enabled | QStyle::State_Active)) | styleState(state);
    const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &box, widget),
                     style.pixelMetric(QStyle::PM_IndicatorHeight, &box, widget));
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, widget);
    if (option.palette.color(QPalette::Base).lightness() > 127)
        return;
    // On dark ground some styles draw the box dark as well; a frame keeps an empty one visible.
    QColor frame = option.palette.color(QPalette::Text);
    frame.setAlphaF(0.5F);
    painter.setPen(frame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
}
