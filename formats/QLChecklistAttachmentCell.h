// SPDX-License-Identifier: MIT
#pragma once

#include "formats/QLChecklistButtonCell.h"
#include "platform/cells/TextAttachmentCell.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/KeyedCoding.h"
#include "platform/propertylist/KeyedUnarchiver.h"

#include <memory>

// Draws and tracks the checkbox of an attachment through a button cell, and holds its state.
class QLChecklistAttachmentCell : public platform::TextAttachmentCell,
                                  public platform::KeyedCoding {
public:
    QLChecklistAttachmentCell();

    [[nodiscard]] bool isOn() const { return m_on; }
    void setOn(bool on);

    [[nodiscard]] QLChecklistButtonCell& buttonCell() const { return *m_buttonCell; }
    // Any state of the button but off counts as on.
    void buttonClicked(const platform::ButtonCell& sender);

    [[nodiscard]] QSizeF cellSize() const override;
    // The box sits 2 points below the baseline.
    [[nodiscard]] QPointF cellBaselineOffset() const override;
    void drawWithFrame(const QRectF& frame, platform::ControlView& view) override;
    [[nodiscard]] bool wantsToTrackMouse() const override { return true; }
    // A completed click is told to the view's delegate. Returns the button cell's answer.
    [[nodiscard]] bool trackMouse(const platform::MouseEvent& event, const QRectF& cellFrame,
                                  platform::ControlView& controlView, qsizetype atCharacterIndex,
                                  bool untilMouseUp) override;

    static const QString archivedClassName;
    [[nodiscard]] QStringList archivedClassNames() const override;
    void encodeWithCoder(platform::KeyedArchiver& coder) override;
    [[nodiscard]] static std::shared_ptr<QLChecklistAttachmentCell>
    initWithCoder(platform::KeyedUnarchiver& coder);

private:
    void createButtonCell();

    bool m_on = false;
    std::unique_ptr<QLChecklistButtonCell> m_buttonCell;
};
