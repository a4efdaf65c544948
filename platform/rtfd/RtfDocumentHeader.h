// SPDX-License-Identifier: MIT
#pragma once

#include "platform/rtfd/DocumentAttributes.h"
#include "platform/rtfd/RtfColorTable.h"
#include "platform/rtfd/RtfFontTable.h"
#include "platform/rtfd/RtfListTable.h"
#include "platform/rtfd/RtfOutput.h"

namespace platform {

// Everything before the text: the tables, the document's information and layout, the paper's
// colour.
[[nodiscard]] RtfOutput rtfHeader(const RtfFontTable& fonts, const RtfColorTable& colors,
                                  const RtfListTable& lists, const DocumentAttributes& attributes);

} // namespace platform
