// SPDX-License-Identifier: MIT
#include "platform/htmlimport/StyleDeclarations.h"

#include "platform/htmlimport/CssTokenizer.h"

namespace platform::html {

namespace {

template <typename Value>
void take(std::optional<Value>& mine, const std::optional<Value>& other)
{
    if (other)
        mine = other;
}

} // namespace

void StyleDeclarations::mergeOver(const StyleDeclarations& other)
{
    take(family, other.family);
    take(fontSize, other.fontSize);
    take(weight, other.weight);
    take(italic, other.italic);
    take(color, other.color);
    take(background, other.background);
    take(decoration, other.decoration);
    take(shift, other.shift);
    take(baselineOffset, other.baselineOffset);
    take(letterSpacing, other.letterSpacing);
    take(transform, other.transform);
    take(whiteSpace, other.whiteSpace);
    take(hidden, other.hidden);
    take(textAlign, other.textAlign);
    take(verticalAlign, other.verticalAlign);
    take(direction, other.direction);
    take(lineHeight, other.lineHeight);
    take(textIndent, other.textIndent);
    take(display, other.display);
    for (std::size_t edge = 0; edge < 4; ++edge) {
        take(margin[edge], other.margin[edge]);
        take(padding[edge], other.padding[edge]);
        take(border[edge].width, other.border[edge].width);
        take(border[edge].visible, other.border[edge].visible);
        take(border[edge].color, other.border[edge].color);
    }
    take(width, other.width);
    take(height, other.height);
    take(listMarkerFormat, other.listMarkerFormat);
    take(collapsesBorders, other.collapsesBorders);
    take(hidesEmptyCells, other.hidesEmptyCells);
    take(borderSpacing, other.borderSpacing);
    isChecklist = isChecklist || other.isChecklist;
    take(isChecked, other.isChecked);
    isCodeBlock = isCodeBlock || other.isCodeBlock;
    take(highlight, other.highlight);
}

StyleDeclarations parseStyle(std::string_view style)
{
    StyleDeclarations result;
    const css::Declarations declarations(style);
    for (const css::Declaration& declaration : declarations.all()) {
        const auto [name, value, important] = declaration;
        // Longer values of properties that are understood exist only to cost time.
        if (value.size() > 4096)
            continue;
        parseEvernoteProperty(name, value, result) || parseFontProperty(name, value, result) ||
            parseTextProperty(name, value, result) || parseBoxProperty(name, value, result);
    }
    // The colour that stands beside a named highlight is the one that the application shows.
    if (result.highlight && !result.background)
        result.background = css::ColorValue{*result.highlight};
    return result;
}

} // namespace platform::html
