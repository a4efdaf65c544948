// SPDX-License-Identifier: MIT
#include "formats/QLChecklistAttachmentCell.h"

namespace {
const QString onKey = QStringLiteral("QLChecklistAttachmentCellOn");
} // namespace

const QString QLChecklistAttachmentCell::archivedClassName =
    QStringLiteral("QLChecklistAttachmentCell");

QLChecklistAttachmentCell::QLChecklistAttachmentCell()
{
    createButtonCell();
}

void QLChecklistAttachmentCell::createButtonCell()
{
    using platform::ButtonCell;
    m_buttonCell = std::make_unique<QLChecklistButtonCell>();
    m_buttonCell->setState(m_on ? ButtonCell::StateOn : ButtonCell::StateOff);
    m_buttonCell->setImagePosition(ButtonCell::ImagePosition::NoImage);
    m_buttonCell->setTitle({});
    m_buttonCell->setButtonType(ButtonCell::Type::Switch);
    m_buttonCell->setAction([this](ButtonCell& sender) { buttonClicked(sender); });
}

void QLChecklistAttachmentCell::setOn(bool on)
{
    m_on = on;
    m_buttonCell->setState(on ? platform::ButtonCell::StateOn : platform::ButtonCell::StateOff);
}

void QLChecklistAttachmentCell::buttonClicked(const platform::ButtonCell& sender)
{
    setOn(sender.state() != platform::ButtonCell::StateOff);
}

QSizeF QLChecklistAttachmentCell::cellSize() const
{
    return m_buttonCell->cellSize();
}

QPointF QLChecklistAttachmentCell::cellBaselineOffset() const
{
    return {0.0, -2.0};
}

void QLChecklistAttachmentCell::drawWithFrame(const QRectF& frame, platform::ControlView& view)
{
    m_buttonCell->drawWithFrame(frame, view);
}

bool QLChecklistAttachmentCell::trackMouse(const platform::MouseEvent& event,
                                           const QRectF& cellFrame,
                                           platform::ControlView& controlView,
                                           qsizetype atCharacterIndex, bool untilMouseUp)
{
    const bool clicked = m_buttonCell->trackMouse(event, cellFrame, controlView, untilMouseUp);
    platform::TextViewDelegate* delegate = controlView.textViewDelegate();
    if (clicked && delegate)
        delegate->textViewClickedOnCell(controlView, *this, cellFrame, atCharacterIndex);
    return clicked;
}

QStringList QLChecklistAttachmentCell::archivedClassNames() const
{
    return {archivedClassName, QStringLiteral("NSTextAttachmentCell"), QStringLiteral("NSCell"),
            QStringLiteral("NSObject")};
}

void QLChecklistAttachmentCell::encodeWithCoder(platform::KeyedArchiver& coder)
{
    coder.encodeBool(m_on, onKey);
}

std::shared_ptr<QLChecklistAttachmentCell>
QLChecklistAttachmentCell::initWithCoder(platform::KeyedUnarchiver& coder)
{
    auto cell = std::make_shared<QLChecklistAttachmentCell>();
    cell->setOn(coder.decodeBool(onKey));
    return cell;
}
