// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextAttributes.h"
#include "platform/rtfd/RtfColorTable.h"
#include "platform/rtfd/RtfFontTable.h"
#include "platform/rtfd/RtfOutput.h"


namespace platform {

// A run's character attributes in the numbers of rich text.
struct RtfCharacterFormat {
    int font = -1; // none set yet
    bool bold = false;
    bool italic = false;
    qint64 sizeInThousandths = 0;
    int foreground = 0;
    int background = 0;
    qint64 kernInTwips = 0;
    qint64 offsetInHalfPoints = 0;
    int superscript = 0;
    LineStyle underline = LineStyle::None;
    int underlineColor = 0;
    LineStyle strikethrough = LineStyle::None;
    int strikethroughColor = 0;

    friend bool operator==(const RtfCharacterFormat&, const RtfCharacterFormat&) = default;
};

// Text without a font is in the platform's own, Helvetica 12.
[[nodiscard]] RtfCharacterFormat characterFormat(const TextAttributes& attributes,
                                                 RtfFontTable& fonts, RtfColorTable& colors);

enum class RtfColorWord { WhereChanged, Always };
// What leads from one format to the other, in the order in which Cocoa writes it.
void appendFormatChange(RtfOutput& out, const RtfCharacterFormat& from,
                        const RtfCharacterFormat& to, RtfColorWord colorWord);

} // namespace platform
