// SPDX-License-Identifier: MIT
#pragma once

#include "platform/cells/ControlView.h"

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <functional>
#include <optional>

namespace platform {

// A button without a view of its own, drawn and tracked inside a larger one.
class ButtonCell {
public:
    enum State : int { StateMixed = -1, StateOff = 0, StateOn = 1 };
    enum class ImagePosition : int { NoImage = 0 };
    enum class Type : int { Switch = 3 };

    ButtonCell();
    virtual ~ButtonCell();
    ButtonCell(const ButtonCell&) = delete;
    ButtonCell& operator=(const ButtonCell&) = delete;

    [[nodiscard]] int state() const { return m_state; }
    void setState(int state) { m_state = state; }

    [[nodiscard]] ImagePosition imagePosition() const { return m_imagePosition; }
    void setImagePosition(ImagePosition position) { m_imagePosition = position; }
    [[nodiscard]] Type buttonType() const { return m_type; }
    void setButtonType(Type type) { m_type = type; }
    [[nodiscard]] const QString& title() const { return m_title; }
    void setTitle(const QString& title) { m_title = title; }

    // Called with this cell when a click is completed.
    void setAction(std::function<void(ButtonCell&)> action) { m_action = std::move(action); }

    [[nodiscard]] virtual NamedImage image() const = 0;
    [[nodiscard]] virtual QSizeF cellSize() const = 0;
    [[nodiscard]] virtual QRectF imageRectForBounds(const QRectF& bounds) const = 0;
    virtual void drawWithFrame(const QRectF& frame, ControlView& view) = 0;

    // Follows the mouse until its button comes up, or, without untilMouseUp, until it leaves the rectangle.
    // True for a completed click: up within the rectangle. A click turns a switch over and performs the
    // action.
    [[nodiscard]] bool trackMouse(const MouseEvent& event, const QRectF& rect, ControlView& view, bool untilMouseUp);

private:
    int m_state = StateOff;
    ImagePosition m_imagePosition = ImagePosition::NoImage;
    Type m_type = Type::Switch;
    QString m_title;
    std::function<void(ButtonCell&)> m_action;
};

} // namespace platform
