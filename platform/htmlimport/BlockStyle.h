// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/ParagraphStyle.h"
#include "platform/htmlimport/HtmlTag.h"
#include "platform/htmlimport/TextStyle.h"

#include <memory>

namespace platform::html {

// What blocks hand down to the paragraphs inside them. Shared and never changed. Lengths in points.
struct BlockStyle {
    HorizontalAlign alignment = HorizontalAlign::Start;
    WritingDirection direction = WritingDirection::Natural;
    double leftIndent = 0;
    double rightIndent = 0;
    double textIndent = 0;
    double lineHeightMultiple = 0;
    double lineHeight = 0;
    int headerLevel = 0;
    // A line break inside is a line separator (U+2028), so that paragraph, item or heading stays
    // one.
    bool breaksAreSoft = false;
    bool isInItem = false;
    std::vector<std::shared_ptr<const TextList>> lists;
    std::vector<std::shared_ptr<const TextBlock>> boxes;
};
using BlockStylePointer = std::shared_ptr<const BlockStyle>;

// How many lists and boxes a paragraph can lie in; deeper ones are shown at this level.
constexpr std::size_t deepestListLevel = 50;
constexpr std::size_t deepestBoxLevel = 20;

// True when a block with these declarations is drawn as a box of its own: code, or anything with a
// border, or with a colour behind it and room around its text or several paragraphs.
[[nodiscard]] bool isBox(const StyleDeclarations& declared);

// The style of a block inside its parent. text: the block's own text style.
[[nodiscard]] BlockStylePointer derivedBlockStyle(const BlockStylePointer& parent,
                                                  const StyleDeclarations& declared,
                                                  const TextStyle& text, const FontContext& fonts,
                                                  Tag tag);

// Padding, borders, size, colour and margins that the declarations name. percentages of unknown
// widths count as none, negative lengths as nought.
void fillBox(TextBlock& box, const StyleDeclarations& declared, const TextStyle& text,
             const FontContext& fonts);

// The distance that a margin, padding or border keeps; nought where it cannot be told.
[[nodiscard]] double distance(const std::optional<css::Length>& length, const TextStyle& text,
                              const FontContext& fonts);

// Spacing in points. hasMarker: the paragraph begins with its list item's marker.
struct ParagraphTraits {
    bool hasMarker = false;
    double spacingBefore = 0;
    double spacingAfter = 0;
    friend bool operator==(const ParagraphTraits&, const ParagraphTraits&) = default;
};
[[nodiscard]] ParagraphStyle paragraphStyleFor(const BlockStyle& block,
                                               const ParagraphTraits& traits);

} // namespace platform::html
