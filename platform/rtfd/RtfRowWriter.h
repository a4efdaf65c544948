// SPDX-License-Identifier: MIT
#pragma once

#include "platform/rtfd/RtfColorTable.h"
#include "platform/rtfd/RtfTablePlan.h"

#include <QByteArray>

namespace platform {

// The width over which the cells of a row are spread, in twips.
constexpr int rtfRowWidth = 8640;

// The bits of \taflags.
constexpr int rtfTableCollapsesBorders = 1;
constexpr int rtfTableHidesEmptyCells = 2;

// The row's definition, from the line before \itap to the last \cellx.
void appendRowDefinition(QByteArray& out, const RtfRowPlan& row, RtfColorTable& colors);

} // namespace platform
