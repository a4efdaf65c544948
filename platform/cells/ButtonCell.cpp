// SPDX-License-Identifier: MIT
#include "platform/cells/ButtonCell.h"

namespace platform {

ControlView::~ControlView() = default;

ButtonCell::ButtonCell() = default;
ButtonCell::~ButtonCell() = default;

bool ButtonCell::trackMouse(const MouseEvent& event, const QRectF& rect, ControlView& view, bool untilMouseUp)
{
    std::optional<MouseEvent> current = event;
    while (current && current->kind != MouseEvent::Kind::Up) {
        if (!untilMouseUp && !rect.contains(current->location))
            return false;
        current = view.nextMouseEvent();
    }
    if (!current || !rect.contains(current->location))
        return false;
    m_state = m_state == StateOff ? StateOn : StateOff;
    if (m_action)
        m_action(*this);
    return true;
}

} // namespace platform
