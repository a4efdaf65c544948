// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/ParagraphStyle.h"
#include "platform/rtfd/RtfOutput.h"


namespace platform {

// Cocoa's default tab stops: twelve, 28 points apart. A style without tab stops and without an
// interval has them; they are always written out, because a reader knows no others, and read back
// as none.
constexpr int defaultTabStopCount = 12;
constexpr int defaultTabStopTwips = 560;

// The paragraph's format from \pard to the end of its line. tableDepth: how many cells it stands
// in.
void appendParagraphFormat(RtfOutput& out, const ParagraphStyle& style, int tableDepth);

} // namespace platform
