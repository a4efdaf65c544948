// SPDX-License-Identifier: MIT
#include "platform/htmlimport/TextStyle.h"

#include <algorithm>
#include <cmath>

namespace platform::html {

namespace {

// Sizes beyond these are slips or tricks to hide text, and text is never lost.
constexpr double smallestSize = 1;
constexpr double largestSize = 1000;
constexpr int deepestShift = 9;

// Sizes that come within a hair of a half or a tenth of a point mean it.
double tidied(double size)
{
    const double half = std::round(size * 2) / 2;
    if (std::abs(half - size) < 0.05)
        return half;
    const double tenth = std::round(size * 10) / 10;
    return std::abs(tenth - size) < 0.005 ? tenth : size;
}

double fontSizeOf(const FontSize& size, double parentSize, double mediumSize)
{
    double value = parentSize;
    switch (size.kind) {
    case FontSize::Kind::Medium:
        value = mediumSize * size.factor;
        break;
    case FontSize::Kind::Parent:
        value = parentSize * size.factor;
        break;
    case FontSize::Kind::Length:
        value = css::points(size.length, parentSize, mediumSize, parentSize).value_or(parentSize);
        break;
    }
    return std::clamp(tidied(value), smallestSize, largestSize);
}

void setFont(TextStyle& style, const StyleDeclarations& declared, const FontContext& fonts)
{
    Font& font = *style.attributes.font;
    if (declared.family) {
        const bool isStandard = declared.family->family.isEmpty();
        font.family = isStandard ? fonts.standardFamily : declared.family->family;
        font.monospaced = isStandard ? fonts.standardIsMonospaced : declared.family->monospaced;
    }
    if (declared.fontSize)
        font.size = fontSizeOf(*declared.fontSize, font.size, fonts.standardSize);
    if (declared.weight)
        font.bold = *declared.weight == FontWeight::Bold || *declared.weight == FontWeight::Bolder;
    if (declared.italic)
        font.italic = *declared.italic;
}

void setColors(TextAttributes& attributes, const StyleDeclarations& declared)
{
    if (declared.color && !declared.color->isCurrentColor && !declared.color->isTransparent())
        attributes.foregroundColor = declared.color->color;
    // Behind a transparent element its parent's background shows.
    if (declared.background && !declared.background->isTransparent())
        attributes.backgroundColor = declared.background->resolved(attributes.foregroundColor);
}

// Lines add up: an element can draw another one but not remove its parent's.
void addLines(TextAttributes& attributes, const Decoration& decoration)
{
    std::optional<Color> color;
    if (decoration.color && !decoration.color->isTransparent())
        color = decoration.color->resolved(attributes.foregroundColor);
    if (decoration.underline != LineStyle::None) {
        attributes.underline = decoration.underline;
        attributes.underlineColor = color;
    }
    if (decoration.strikethrough != LineStyle::None) {
        attributes.strikethrough = decoration.strikethrough;
        attributes.strikethroughColor = color;
    }
}

void setShift(TextAttributes& attributes, VerticalShift shift)
{
    if (shift == VerticalShift::Super)
        attributes.superscript = std::min(attributes.superscript + 1, deepestShift);
    else if (shift == VerticalShift::Sub)
        attributes.superscript = std::max(attributes.superscript - 1, -deepestShift);
}

} // namespace

TextStylePointer rootTextStyle(const FontContext& fonts)
{
    auto style = std::make_shared<TextStyle>();
    style->attributes.font = Font{fonts.standardFamily, fonts.standardSize};
    style->attributes.font->monospaced = fonts.standardIsMonospaced;
    return style;
}

TextStyle derivedTextStyle(const TextStyle& parent, const StyleDeclarations& declared,
                           const FontContext& fonts)
{
    TextStyle style = parent;
    setFont(style, declared, fonts);
    setColors(style.attributes, declared);
    if (declared.decoration)
        addLines(style.attributes, *declared.decoration);
    if (declared.shift)
        setShift(style.attributes, *declared.shift);
    const double size = style.font().size;
    if (declared.baselineOffset) {
        const auto offset = css::points(*declared.baselineOffset, size, fonts.standardSize, size);
        style.attributes.baselineOffset = std::clamp(offset.value_or(0), -largestSize, largestSize);
    }
    if (declared.letterSpacing) {
        const auto spacing = css::points(*declared.letterSpacing, size, fonts.standardSize, size);
        style.attributes.kern = std::clamp(spacing.value_or(0), -largestSize, largestSize);
    }
    style.transform = declared.transform.value_or(style.transform);
    style.whiteSpace = declared.whiteSpace.value_or(style.whiteSpace);
    style.hidden = declared.hidden.value_or(style.hidden);
    return style;
}

bool leavesTextAlone(const StyleDeclarations& declared)
{
    return !declared.family && !declared.fontSize && !declared.weight && !declared.italic &&
           !declared.color && !declared.background && !declared.decoration && !declared.shift &&
           !declared.baselineOffset && !declared.letterSpacing && !declared.transform &&
           !declared.whiteSpace && !declared.hidden;
}

TextAttributes plainAttributes(const TextStyle& style)
{
    TextAttributes attributes;
    attributes.font = style.attributes.font;
    attributes.foregroundColor = style.attributes.foregroundColor;
    return attributes;
}

} // namespace platform::html
