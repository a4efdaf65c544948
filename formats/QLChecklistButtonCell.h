// SPDX-License-Identifier: MIT
#pragma once

#include "platform/cells/ButtonCell.h"

// The switch that draws a checkbox of a note: one of two images, with 3 points of room to its
// right.
class QLChecklistButtonCell : public platform::ButtonCell {
public:
    // "TextChecklistOn" when the state is on, else "TextChecklistOff".
    [[nodiscard]] platform::NamedImage image() const override;
    [[nodiscard]] QSizeF cellSize() const override;
    [[nodiscard]] QRectF imageRectForBounds(const QRectF& bounds) const override;
    void drawWithFrame(const QRectF& frame, platform::ControlView& view) override;
};
