// SPDX-License-Identifier: MIT
#include "formats/QLChecklistButtonCell.h"

namespace {
// Points between the box and the text.
constexpr double gap = 3;
} // namespace

platform::NamedImage QLChecklistButtonCell::image() const
{
    return platform::NamedImage(state() == StateOn ? QStringLiteral("TextChecklistOn")
                                                   : QStringLiteral("TextChecklistOff"));
}

QSizeF QLChecklistButtonCell::cellSize() const
{
    const QSizeF imageSize = image().size();
    return {imageSize.width() + gap, imageSize.height()};
}

QRectF QLChecklistButtonCell::imageRectForBounds(const QRectF& bounds) const
{
    return {bounds.x(), bounds.y(), bounds.width() - gap, bounds.height()};
}

void QLChecklistButtonCell::drawWithFrame(const QRectF& frame, platform::ControlView& view)
{
    platform::ControlView::ImageDrawing drawing;
    drawing.target = imageRectForBounds(frame);
    drawing.respectsFlipped = true;
    view.drawImage(image(), drawing);
}
