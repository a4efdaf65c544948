// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/ElementDefaults.h"
#include "platform/htmlimport/ElementStyles.h"

#include <algorithm>
#include <array>

namespace platform::html {

namespace {

using css::equalsFolded;

// <font size>: 1 to 7, or +n and -n from 3; shares of medium.
void applyFontSize(std::string_view value, StyleDeclarations& style)
{
    constexpr std::array<double, 7> sizes = {10.0 / 16, 13.0 / 16, 1,        18.0 / 16,
                                             24.0 / 16, 32.0 / 16, 48.0 / 16};
    value = css::trimmed(value);
    const auto number = css::numberIn(value);
    if (!number)
        return;
    const bool isRelative = value.front() == '+' || value.front() == '-';
    const double step = std::clamp(*number + (isRelative ? 3 : 0), 1.0, 7.0);
    style.fontSize =
        FontSize{FontSize::Kind::Medium, {}, sizes[static_cast<std::size_t>(step) - 1]};
}

void applyAlign(std::string_view value, Tag tag, StyleDeclarations& style)
{
    switch (tag) {
    case Tag::Table:
    case Tag::Img:
    case Tag::Hr:
    case Tag::Iframe:
    case Tag::Object:
        return; // where the object floats, not how its text lies
    default:
        if (equalsFolded(value, "middle"))
            value = "center";
        parseTextProperty("text-align", value, style);
    }
}

// The attribute's letters count: a is not A.
void applyListType(std::string_view value, StyleDeclarations& style)
{
    value = css::trimmed(value);
    if (value == "1")
        value = "decimal";
    else if (value == "a")
        value = "lower-alpha";
    else if (value == "A")
        value = "upper-alpha";
    else if (value == "i")
        value = "lower-roman";
    else if (value == "I")
        value = "upper-roman";
    if (auto format = markerFormatForListType(value))
        style.listMarkerFormat = std::move(format);
}

void applyDirection(std::string_view value, StyleDeclarations& style)
{
    if (equalsFolded(value, "auto"))
        style.direction = WritingDirection::Natural;
    else
        parseTextProperty("direction", value, style);
}

} // namespace

void applyPresentationalAttribute(std::string_view name, std::string_view value, Tag tag,
                                  StyleDeclarations& style)
{
    if (equalsFolded(name, "align")) {
        applyAlign(css::trimmed(value), tag, style);
    } else if (equalsFolded(name, "dir")) {
        applyDirection(css::trimmed(value), style);
    } else if (equalsFolded(name, "hidden")) {
        style.display = Display::None;
    } else if (equalsFolded(name, "bgcolor")) {
        if (const auto color = css::colorFromAttribute(value))
            style.background = color;
    } else if (equalsFolded(name, "color") || (tag == Tag::Body && equalsFolded(name, "text"))) {
        if (const auto color = css::colorFromAttribute(value);
            color && (tag == Tag::Font || tag == Tag::Body))
            style.color = color;
    } else if (equalsFolded(name, "face")) {
        if (auto family = familyFromList(value))
            style.family = std::move(family);
    } else if (equalsFolded(name, "size")) {
        if (tag == Tag::Font)
            applyFontSize(value, style);
    } else if (equalsFolded(name, "type")) {
        if (isList(tag) || tag == Tag::Li)
            applyListType(value, style);
    } else if (equalsFolded(name, "valign")) {
        if (isTablePart(tag))
            parseTextProperty("vertical-align", css::trimmed(value), style);
    } else if (equalsFolded(name, "width") || equalsFolded(name, "height")) {
        if (const auto length = css::lengthFromAttribute(value))
            (equalsFolded(name, "width") ? style.width : style.height) = length;
    }
}

} // namespace platform::html
