// SPDX-License-Identifier: MIT
#include "platform/cells/TextAttachmentCell.h"

namespace platform {

TextAttachmentCell::TextAttachmentCell() = default;
TextAttachmentCell::~TextAttachmentCell() = default;

bool TextAttachmentCell::trackMouse(const MouseEvent&, const QRectF&, ControlView&, qsizetype, bool) { return false; }

TextViewDelegate::~TextViewDelegate() = default;

} // namespace platform
