// SPDX-License-Identifier: MIT
#include "platform/htmlimport/BlockStyle.h"

#include "platform/htmlimport/ElementDefaults.h"

#include <algorithm>

namespace platform::html {

namespace {

constexpr std::size_t leftEdge = static_cast<std::size_t>(TextEdge::Left);
constexpr std::size_t rightEdge = static_cast<std::size_t>(TextEdge::Right);

// Beyond these a page means to push its text out of sight.
constexpr double largestDistance = 10000;
// The platform's lists: each level is indented by half an inch, and its marker stands 25 points
// before.
constexpr double listIndent = 36;
constexpr double markerDistance = 25;

// Grey behind code that names no colour.
const Color codeBackground = Color::fromRgb8(245, 245, 245);
constexpr double codePadding = 8;

bool isLightOrNone(const std::optional<css::ColorValue>& background)
{
    return !background || background->isTransparent() || background->color == Color{1, 1, 1, 1};
}

bool isVisible(const BorderSide& side)
{
    return side.visible.value_or(false) && (!side.width || side.width->value > 0) &&
           !(side.color && side.color->isTransparent());
}

// Elements whose borders and backgrounds never make a box: the page itself, lists, and tables'
// parts.
bool isNeverBox(Tag tag)
{
    return isTablePart(tag) || isList(tag) || tag == Tag::Li || tag == Tag::Html ||
           tag == Tag::Body || tag == Tag::EnNote || tag == Tag::Hr;
}

bool hasOwnIndents(Tag tag)
{
    return !isTablePart(tag) && !isList(tag) && tag != Tag::Li;
}

bool keepsItsBreaks(Tag tag)
{
    return tag == Tag::P || tag == Tag::Li || headerLevelOf(tag) > 0;
}

void addBox(BlockStyle& block, const StyleDeclarations& declared, const TextStyle& text,
            const FontContext& fonts)
{
    auto box = std::make_shared<TextBlock>();
    fillBox(*box, declared, text, fonts);
    box->margin[leftEdge] += block.leftIndent;
    box->margin[rightEdge] += block.rightIndent;
    box->verticalAlignment = TextVerticalAlignment::Top;
    if (declared.isCodeBlock) {
        if (!box->backgroundColor)
            box->backgroundColor = codeBackground;
        const bool hasPadding = std::any_of(box->padding.begin(), box->padding.end(),
                                            [](double side) { return side > 0; });
        if (!hasPadding)
            box->padding.fill(codePadding);
    }
    block.boxes.push_back(std::move(box));
    block.leftIndent = 0;
    block.rightIndent = 0;
}

TextAlignment alignmentOf(const BlockStyle& block)
{
    const bool isRightToLeft = block.direction == WritingDirection::RightToLeft;
    switch (block.alignment) {
    case HorizontalAlign::Start:
        return TextAlignment::Natural;
    case HorizontalAlign::End:
        return isRightToLeft ? TextAlignment::Left : TextAlignment::Right;
    case HorizontalAlign::Left:
        return TextAlignment::Left;
    case HorizontalAlign::Right:
        return TextAlignment::Right;
    case HorizontalAlign::Center:
        return TextAlignment::Center;
    case HorizontalAlign::Justify:
        return TextAlignment::Justified;
    }
    return TextAlignment::Natural;
}

} // namespace

double distance(const std::optional<css::Length>& length, const TextStyle& text,
                const FontContext& fonts)
{
    if (!length)
        return 0;
    const double points = css::points(*length, text.font().size, fonts.standardSize).value_or(0);
    return std::clamp(points, 0.0, largestDistance);
}

bool isBox(const StyleDeclarations& declared)
{
    if (declared.isCodeBlock || declared.isColoredPart ||
        std::any_of(declared.border.begin(), declared.border.end(), isVisible))
        return true;
    const auto hasLength = [](const std::optional<css::Length>& side) {
        return side && side->value > 0;
    };
    return !isLightOrNone(declared.background) &&
           std::any_of(declared.padding.begin(), declared.padding.end(), hasLength);
}

void fillBox(TextBlock& box, const StyleDeclarations& declared, const TextStyle& text,
             const FontContext& fonts)
{
    for (std::size_t edge = 0; edge < 4; ++edge) {
        box.padding[edge] = distance(declared.padding[edge], text, fonts);
        box.margin[edge] = distance(declared.margin[edge], text, fonts);
        const BorderSide& side = declared.border[edge];
        if (!isVisible(side))
            continue;
        box.borderWidth[edge] = distance(side.width.value_or(css::Length{3}), text, fonts);
        const css::ColorValue color = side.color.value_or(css::ColorValue{{}, true});
        box.borderColor[edge] = color.resolved(text.attributes.foregroundColor);
    }
    if (declared.background && !declared.background->isTransparent())
        box.backgroundColor = declared.background->resolved(text.attributes.foregroundColor);
    if (declared.width) {
        if (declared.width->unit == css::Length::Unit::Percent)
            box.width = TextLength{std::clamp(declared.width->value, 0.0, 100.0),
                                   TextLength::Unit::Percent};
        else if (const double width = distance(declared.width, text, fonts); width > 0)
            box.width = TextLength{width};
    }
    if (declared.height && declared.height->unit != css::Length::Unit::Percent) {
        if (const double height = distance(declared.height, text, fonts); height > 0)
            box.height = TextLength{height};
    }
}

BlockStylePointer derivedBlockStyle(const BlockStylePointer& parent,
                                    const StyleDeclarations& declared, const TextStyle& text,
                                    const FontContext& fonts, Tag tag)
{
    const bool hasIndents =
        hasOwnIndents(tag) && (declared.margin[leftEdge] || declared.margin[rightEdge] ||
                               declared.padding[leftEdge] || declared.padding[rightEdge]);
    const bool wantsBox = (declared.isColoredPart || !isNeverBox(tag)) && isBox(declared) &&
                          parent->boxes.size() < deepestBoxLevel;
    const bool breaksAreSoft = (keepsItsBreaks(tag) || parent->isInItem) && !declared.isCodeBlock;
    const int level = headerLevelOf(tag);
    if (!hasIndents && !wantsBox && !declared.textAlign && !declared.direction &&
        !declared.lineHeight && !declared.textIndent && level == 0 &&
        parent->breaksAreSoft == breaksAreSoft)
        return parent;

    auto block = std::make_shared<BlockStyle>(*parent);
    block->alignment = declared.textAlign.value_or(block->alignment);
    block->direction = declared.direction.value_or(block->direction);
    block->breaksAreSoft = breaksAreSoft;
    if (declared.isCodeBlock)
        block->isInItem = false;
    if (level > 0)
        block->headerLevel = level;
    if (declared.lineHeight) {
        block->lineHeightMultiple = std::min(declared.lineHeight->multiple, 100.0);
        block->lineHeight = distance(declared.lineHeight->length, text, fonts);
    }
    if (declared.textIndent) {
        const auto indent = css::points(*declared.textIndent, text.font().size, fonts.standardSize);
        block->textIndent = std::clamp(indent.value_or(0), -largestDistance, largestDistance);
    }
    if (wantsBox) {
        addBox(*block, declared, text, fonts);
    } else if (hasIndents) {
        block->leftIndent =
            std::min(block->leftIndent + distance(declared.margin[leftEdge], text, fonts) +
                         distance(declared.padding[leftEdge], text, fonts),
                     largestDistance);
        block->rightIndent =
            std::min(block->rightIndent + distance(declared.margin[rightEdge], text, fonts) +
                         distance(declared.padding[rightEdge], text, fonts),
                     largestDistance);
    }
    return block;
}

ParagraphStyle paragraphStyleFor(const BlockStyle& block, const ParagraphTraits& traits)
{
    const bool isRightToLeft = block.direction == WritingDirection::RightToLeft;
    const double leading = isRightToLeft ? block.rightIndent : block.leftIndent;
    const double trailing = isRightToLeft ? block.leftIndent : block.rightIndent;
    const double listEdge = leading + listIndent * static_cast<double>(block.lists.size());

    ParagraphStyle style;
    style.alignment = alignmentOf(block);
    style.direction = block.direction;
    style.headIndent = listEdge;
    style.firstLineHeadIndent =
        traits.hasMarker ? leading : std::max(0.0, listEdge + block.textIndent);
    if (traits.hasMarker) {
        style.tabStops = {{TextAlignment::Left, listEdge - markerDistance},
                          {TextAlignment::Left, listEdge}};
    }
    if (trailing > 0)
        style.tailIndent = -trailing;
    style.paragraphSpacing = traits.spacingAfter;
    style.paragraphSpacingBefore = traits.spacingBefore;
    style.lineHeightMultiple = block.lineHeightMultiple;
    style.minimumLineHeight = block.lineHeight;
    style.maximumLineHeight = block.lineHeight;
    style.headerLevel = block.headerLevel;
    style.textLists = block.lists;
    style.textBlocks = block.boxes;
    return style;
}

} // namespace platform::html
