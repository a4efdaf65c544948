// SPDX-License-Identifier: MIT
#pragma once

#include "platform/cells/ControlView.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace platform {

// Draws the attachment that a character of a text stands for, and follows the mouse in it.
class TextAttachmentCell {
public:
    TextAttachmentCell();
    virtual ~TextAttachmentCell();
    TextAttachmentCell(const TextAttachmentCell&) = delete;
    TextAttachmentCell& operator=(const TextAttachmentCell&) = delete;

    // Points.
    [[nodiscard]] virtual QSizeF cellSize() const = 0;
    // Where the cell's lower left corner lies from the baseline, y upwards.
    [[nodiscard]] virtual QPointF cellBaselineOffset() const { return {0, 0}; }
    virtual void drawWithFrame(const QRectF& frame, ControlView& view) = 0;

    [[nodiscard]] virtual bool wantsToTrackMouse() const { return false; }
    // characterIndex: the position of the attachment character, in UTF-16 code units.
    [[nodiscard]] virtual bool trackMouse(const MouseEvent& event, const QRectF& cellFrame, ControlView& controlView,
                                          qsizetype atCharacterIndex, bool untilMouseUp);
};

// What a text view's delegate may want to hear: a click on an attachment.
class TextViewDelegate {
public:
    virtual ~TextViewDelegate();
    virtual void textViewClickedOnCell(ControlView& view, TextAttachmentCell& cell, const QRectF& rect,
                                       qsizetype atIndex)
        = 0;
};

} // namespace platform
