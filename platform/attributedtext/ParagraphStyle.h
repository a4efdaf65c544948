// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextList.h"
#include "platform/attributedtext/TextTable.h"

#include <memory>
#include <vector>

namespace platform {

enum class TextAlignment { Natural, Left, Right, Center, Justified };
enum class WritingDirection { Natural, LeftToRight, RightToLeft };

struct TextTab {
    TextAlignment alignment = TextAlignment::Left;
    double location = 0; // points from the left margin
    friend bool operator==(const TextTab&, const TextTab&) = default;
};

// How a paragraph is laid out. All lengths in points. Styles are shared between runs and never
// changed once shared.
struct ParagraphStyle {
    TextAlignment alignment = TextAlignment::Natural;
    WritingDirection direction = WritingDirection::Natural;
    double firstLineHeadIndent = 0;
    double headIndent = 0;
    double tailIndent = 0; // from the left margin when positive, from the right when negative
    double paragraphSpacing = 0;
    double paragraphSpacingBefore = 0;
    double lineSpacing = 0;
    double lineHeightMultiple = 0; // 0: the font's own
    double minimumLineHeight = 0;
    double maximumLineHeight = 0;
    double defaultTabInterval = 0;
    double hyphenationFactor = 0;
    int headerLevel = 0; // 1 to 6, 0 for text
    std::vector<TextTab> tabStops;
    std::vector<std::shared_ptr<const TextList>> textLists;   // outermost first
    std::vector<std::shared_ptr<const TextBlock>> textBlocks; // outermost first

    friend bool operator==(const ParagraphStyle&, const ParagraphStyle&) = default;
};

} // namespace platform
