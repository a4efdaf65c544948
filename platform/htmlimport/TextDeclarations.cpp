// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/StyleDeclarations.h"

#include <array>
#include <utility>

namespace platform::html {

namespace {

using css::equalsFolded;

template <typename Value, std::size_t Count>
std::optional<Value> keyword(std::string_view text,
                             const std::array<std::pair<std::string_view, Value>, Count>& keywords)
{
    for (const auto& [name, value] : keywords) {
        if (equalsFolded(text, name))
            return value;
    }
    return std::nullopt;
}

constexpr std::array<std::pair<std::string_view, HorizontalAlign>, 10> alignments = {{
    {"start", HorizontalAlign::Start},
    {"end", HorizontalAlign::End},
    {"left", HorizontalAlign::Left},
    {"right", HorizontalAlign::Right},
    {"center", HorizontalAlign::Center},
    {"justify", HorizontalAlign::Justify},
    {"-webkit-left", HorizontalAlign::Left},
    {"-webkit-right", HorizontalAlign::Right},
    {"-webkit-center", HorizontalAlign::Center},
    {"-webkit-auto", HorizontalAlign::Start},
}};

constexpr std::array<std::pair<std::string_view, WhiteSpace>, 6> whiteSpaces = {{
    {"normal", WhiteSpace::Normal},
    {"nowrap", WhiteSpace::Normal},
    {"pre", WhiteSpace::Pre},
    {"pre-wrap", WhiteSpace::Pre},
    {"break-spaces", WhiteSpace::Pre},
    {"pre-line", WhiteSpace::PreLine},
}};

constexpr std::array<std::pair<std::string_view, TextTransform>, 4> transforms = {{
    {"none", TextTransform::None},
    {"uppercase", TextTransform::Uppercase},
    {"lowercase", TextTransform::Lowercase},
    {"capitalize", TextTransform::Capitalize},
}};

// text-decoration and its parts; a part overrides only what it speaks of.
void parseDecoration(std::string_view value, StyleDeclarations& style)
{
    Decoration decoration;
    LineStyle line = LineStyle::Single;
    bool underlined = false;
    bool struck = false;
    bool isLine = false;
    for (const std::string_view part : css::valueParts(value)) {
        if (equalsFolded(part, "underline"))
            underlined = isLine = true;
        else if (equalsFolded(part, "line-through"))
            struck = isLine = true;
        else if (equalsFolded(part, "none"))
            isLine = true;
        else if (equalsFolded(part, "double"))
            line = LineStyle::Double;
        else if (const auto color = css::colorFrom(part))
            decoration.color = color;
    }
    if (!isLine)
        return;
    decoration.underline = underlined ? line : LineStyle::None;
    decoration.strikethrough = struck ? line : LineStyle::None;
    style.decoration = decoration;
}

void parseVerticalAlign(std::string_view value, StyleDeclarations& style)
{
    if (equalsFolded(value, "super")) {
        style.shift = VerticalShift::Super;
    } else if (equalsFolded(value, "sub")) {
        style.shift = VerticalShift::Sub;
    } else if (equalsFolded(value, "baseline")) {
        style.shift = VerticalShift::Baseline;
        style.verticalAlign = TextVerticalAlignment::Baseline;
    } else if (equalsFolded(value, "top") || equalsFolded(value, "text-top")) {
        style.verticalAlign = TextVerticalAlignment::Top;
    } else if (equalsFolded(value, "middle")) {
        style.verticalAlign = TextVerticalAlignment::Middle;
    } else if (equalsFolded(value, "bottom") || equalsFolded(value, "text-bottom")) {
        style.verticalAlign = TextVerticalAlignment::Bottom;
    } else if (const auto length = css::lengthFrom(value)) {
        style.baselineOffset = length;
    }
}

void parseLineHeight(std::string_view value, StyleDeclarations& style)
{
    if (equalsFolded(value, "normal")) {
        style.lineHeight = LineHeight{};
        return;
    }
    const auto length = css::lengthFrom(value);
    if (!length || length->value <= 0)
        return;
    switch (length->unit) {
    case css::Length::Unit::Number:
    case css::Length::Unit::Em:
        style.lineHeight = LineHeight{length->value, std::nullopt};
        break;
    case css::Length::Unit::Percent:
        style.lineHeight = LineHeight{length->value / 100, std::nullopt};
        break;
    case css::Length::Unit::Points:
    case css::Length::Unit::RootEm:
        style.lineHeight = LineHeight{0, length};
        break;
    }
}

} // namespace

bool parseTextProperty(std::string_view name, std::string_view value, StyleDeclarations& style)
{
    if (name == "color" || name == "-webkit-text-fill-color") {
        if (const auto color = css::colorFrom(value))
            style.color = color;
    } else if (name == "text-decoration" || name == "text-decoration-line" ||
               name == "-webkit-text-decoration") {
        parseDecoration(value, style);
    } else if (name == "text-decoration-color") {
        if (const auto color = css::colorFrom(value); color && style.decoration)
            style.decoration->color = color;
    } else if (name == "text-decoration-style") {
        if (style.decoration && equalsFolded(value, "double")) {
            for (LineStyle* line : {&style.decoration->underline, &style.decoration->strikethrough})
                *line = *line == LineStyle::None ? LineStyle::None : LineStyle::Double;
        }
    } else if (name == "text-align") {
        if (const auto alignment = keyword(value, alignments))
            style.textAlign = alignment;
    } else if (name == "vertical-align") {
        parseVerticalAlign(value, style);
    } else if (name == "line-height") {
        parseLineHeight(value, style);
    } else if (name == "text-indent") {
        if (const auto length = css::lengthFrom(value))
            style.textIndent = length;
    } else if (name == "letter-spacing") {
        if (equalsFolded(value, "normal"))
            style.letterSpacing = css::Length{};
        else if (const auto length = css::lengthFrom(value))
            style.letterSpacing = length;
    } else if (name == "text-transform") {
        if (const auto transform = keyword(value, transforms))
            style.transform = transform;
    } else if (name == "white-space") {
        if (const auto whiteSpace = keyword(value, whiteSpaces))
            style.whiteSpace = whiteSpace;
    } else if (name == "direction") {
        if (equalsFolded(value, "rtl"))
            style.direction = WritingDirection::RightToLeft;
        else if (equalsFolded(value, "ltr"))
            style.direction = WritingDirection::LeftToRight;
    } else if (name == "visibility") {
        if (equalsFolded(value, "hidden") || equalsFolded(value, "collapse"))
            style.hidden = true;
        else if (equalsFolded(value, "visible"))
            style.hidden = false;
    } else {
        return false;
    }
    return true;
}

} // namespace platform::html
