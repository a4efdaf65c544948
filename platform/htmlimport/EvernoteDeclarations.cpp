// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/StyleDeclarations.h"

#include <array>
#include <utility>

namespace platform::html {

namespace {

// Soft enough for dark text on them; only for highlights that name a colour and give none.
constexpr std::array<std::pair<std::string_view, std::array<int, 3>>, 6> highlights = {{
    {"yellow", {255, 240, 150}},
    {"red", {255, 199, 206}},
    {"green", {190, 240, 190}},
    {"blue", {190, 222, 255}},
    {"purple", {225, 205, 255}},
    {"orange", {255, 218, 170}},
}};

std::optional<Color> highlightNamed(std::string_view name)
{
    for (const auto& [known, rgb] : highlights) {
        if (css::equalsFolded(name, known))
            return Color::fromRgb8(rgb[0], rgb[1], rgb[2]);
    }
    const auto color = css::colorFrom(name);
    if (color && !color->isCurrentColor && !color->isTransparent())
        return color->color;
    return std::nullopt;
}

} // namespace

bool parseEvernoteProperty(std::string_view name, std::string_view value, StyleDeclarations& style)
{
    if (name.size() < 4 || name.front() != '-')
        return false;
    const bool isTrue = css::equalsFolded(value, "true");
    if (name == "--en-todo" || name == "-en-todo") {
        style.isChecklist = isTrue;
    } else if (name == "--en-checked" || name == "-en-checked") {
        style.isChecked = isTrue;
    } else if (name == "--en-codeblock" || name == "-en-codeblock") {
        style.isCodeBlock = isTrue;
    } else if (name == "--en-highlight" || name == "-en-highlight") {
        style.highlight = highlightNamed(value);
    } else if (name == "-evernote-highlight" || name == "--evernote-highlight") {
        if (isTrue && !style.highlight)
            style.highlight = highlightNamed("yellow");
    } else {
        return name.starts_with("--");
    }
    return true;
}

} // namespace platform::html
