// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextAttributes.h"
#include "platform/rtfd/RtfReadTables.h"
#include "platform/rtfd/RtfWords.h"

#include <memory>
#include <vector>

namespace platform {

// A word with its number, as the format readers take it.
struct RtfReadWord {
    RtfWord word = RtfWord::Unknown;
    bool hasNumber = false;
    qint32 number = 0;

    // A switch without a number is on.
    [[nodiscard]] bool isOn() const { return !hasNumber || number != 0; }
};

// Character formats as the file has them, in its numbers.
struct RtfReadCharacters {
    int font = -1; // none named yet
    bool bold = false;
    bool italic = false;
    qint32 sizeInThousandths = 12000;
    qint32 foreground = 0;
    qint32 background = 0;
    qint32 kernInTwips = 0;
    qint32 offsetInHalfPoints = 0;
    qint32 superscript = 0;
    LineStyle underline = LineStyle::None;
    qint32 underlineColor = 0;
    LineStyle strikethrough = LineStyle::None;
    qint32 strikethroughColor = 0;

    friend bool operator==(const RtfReadCharacters&, const RtfReadCharacters&) = default;

    // False when the word is none of character formats.
    bool apply(const RtfReadWord& word);
    [[nodiscard]] TextAttributes attributes(RtfReadFonts& fonts, const RtfReadColors& colors,
                                            const RtfDocumentFacts& facts) const;
};

// Paragraph formats as the file has them; lengths in twips.
struct RtfReadParagraph {
    TextAlignment alignment = TextAlignment::Natural;
    std::optional<WritingDirection> direction; // none told
    qint32 indent = 0;
    qint32 firstLine = 0;
    qint32 rightIndent = 0;
    qint32 spaceBefore = 0;
    qint32 spaceAfter = 0;
    qint32 lineHeight = 0;
    bool isLineHeightMultiple = false;
    qint32 leading = 0;
    qint32 maximumLineHeight = 0;
    qint32 minimumLineHeight = 0;
    qint32 tabInterval = 0;
    int headerLevel = 0;
    bool isHyphenated = false;
    TextAlignment nextTab = TextAlignment::Left;
    std::vector<TextTab> tabStops;
    qint32 list = 0;
    qint32 listLevel = 0;
    std::shared_ptr<const TextList> ownList; // of the older form, which no table lists
    bool isInTable = false;
    qint32 tableLevel = 0;

    // False when the word is none of paragraph formats.
    bool apply(const RtfReadWord& word);
    // How many table cells the paragraph stands in.
    [[nodiscard]] int depth() const;
    [[nodiscard]] ParagraphStyle style(const RtfReadLists& lists,
                                       const RtfDocumentFacts& facts) const;
};

} // namespace platform
