// SPDX-License-Identifier: MIT
#pragma once

#include "platform/rtfd/RtfColorTable.h"
#include "platform/rtfd/RtfOutput.h"
#include "platform/rtfd/RtfTablePlan.h"


namespace platform {

// The width over which the cells of a row are spread, in twips.
constexpr int rtfRowWidth = 8640;

// The bits of \taflags.
constexpr int rtfTableCollapsesBorders = 1;
constexpr int rtfTableHidesEmptyCells = 2;

// The row's definition, from the line before \itap to the last \cellx.
void appendRowDefinition(RtfOutput& out, const RtfRowPlan& row, RtfColorTable& colors);

// The end of a row, behind the end of its last cell. An inner row is defined there once more, in
// the group in which readers other than Cocoa look for it; without it they lose the row with its
// text.
void appendRowEnd(RtfOutput& out, const RtfRowPlan& row, RtfColorTable& colors);

} // namespace platform
