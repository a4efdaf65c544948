// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/StyleDeclarations.h"

#include <array>
#include <utility>

namespace platform::html {

namespace {

using css::equalsFolded;
using Parts = std::vector<std::string_view>;

constexpr std::array<std::pair<std::string_view, TextEdge>, 8> edges = {{
    {"left", TextEdge::Left},
    {"top", TextEdge::Top},
    {"right", TextEdge::Right},
    {"bottom", TextEdge::Bottom},
    // Logical edges, as they lie where text runs from left to right.
    {"inline-start", TextEdge::Left},
    {"block-start", TextEdge::Top},
    {"inline-end", TextEdge::Right},
    {"block-end", TextEdge::Bottom},
}};

std::optional<std::size_t> edgeNamed(std::string_view name)
{
    for (const auto& [text, edge] : edges) {
        if (name == text)
            return static_cast<std::size_t>(edge);
    }
    return std::nullopt;
}

// Gives the one to four values of a shorthand (top, right, bottom, left) to the four edges.
template <typename Function>
void forEachEdge(const Parts& parts, Function function)
{
    if (parts.empty() || parts.size() > 4)
        return;
    const std::size_t right = parts.size() > 1 ? 1 : 0;
    const std::size_t bottom = parts.size() > 2 ? 2 : 0;
    const std::size_t left = parts.size() > 3 ? 3 : right;
    function(static_cast<std::size_t>(TextEdge::Top), parts[0]);
    function(static_cast<std::size_t>(TextEdge::Right), parts[right]);
    function(static_cast<std::size_t>(TextEdge::Bottom), parts[bottom]);
    function(static_cast<std::size_t>(TextEdge::Left), parts[left]);
}

std::optional<css::Length> marginFrom(std::string_view value)
{
    return equalsFolded(value, "auto") ? css::Length{} : css::lengthFrom(value);
}

std::optional<css::Length> borderWidthFrom(std::string_view value)
{
    if (equalsFolded(value, "thin"))
        return css::Length{1};
    if (equalsFolded(value, "medium"))
        return css::Length{3};
    if (equalsFolded(value, "thick"))
        return css::Length{5};
    const auto length = css::lengthFrom(value);
    return length && length->value >= 0 ? length : std::nullopt;
}

std::optional<bool> borderVisibilityFrom(std::string_view value)
{
    for (const std::string_view style : {"none", "hidden"}) {
        if (equalsFolded(value, style))
            return false;
    }
    for (const std::string_view style :
         {"solid", "dashed", "dotted", "double", "groove", "ridge", "inset", "outset"}) {
        if (equalsFolded(value, style))
            return true;
    }
    return std::nullopt;
}

// border: width || style || color; what is not named falls back to medium, none and the text's
// colour.
BorderSide borderFrom(const Parts& parts)
{
    BorderSide side{css::Length{3}, false, css::ColorValue{{}, true}};
    for (const std::string_view part : parts) {
        if (const auto visible = borderVisibilityFrom(part))
            side.visible = visible;
        else if (const auto width = borderWidthFrom(part))
            side.width = width;
        else if (const auto color = css::colorFrom(part))
            side.color = color;
    }
    return side;
}

void parseBorderPart(std::string_view part, const std::string_view value, BorderSide& side)
{
    if (part == "width") {
        if (const auto width = borderWidthFrom(value))
            side.width = width;
    } else if (part == "style") {
        if (const auto visible = borderVisibilityFrom(value))
            side.visible = visible;
    } else if (part == "color") {
        if (const auto color = css::colorFrom(value))
            side.color = color;
    }
}

// name: what stands behind "border-".
bool parseBorder(std::string_view name, std::string_view value, StyleDeclarations& style)
{
    if (name == "collapse") {
        style.collapsesBorders = equalsFolded(value, "collapse");
        return true;
    }
    if (name == "spacing") {
        const Parts parts = css::valueParts(value);
        if (const auto length = parts.empty() ? std::nullopt : css::lengthFrom(parts.front()))
            style.borderSpacing = length;
        return true;
    }
    const Parts parts = css::valueParts(value);
    if (name == "width" || name == "style" || name == "color") {
        forEachEdge(parts, [&](std::size_t edge, std::string_view part) {
            parseBorderPart(name, part, style.border[edge]);
        });
        return true;
    }
    if (const auto edge = edgeNamed(name)) {
        style.border[*edge] = borderFrom(parts);
        return true;
    }
    const std::size_t dash = name.rfind('-');
    if (dash == std::string_view::npos)
        return false;
    if (const auto edge = edgeNamed(name.substr(0, dash)))
        parseBorderPart(name.substr(dash + 1), value, style.border[*edge]);
    return true;
}

bool parseSpacing(std::string_view name, std::string_view value, StyleDeclarations& style)
{
    const bool isMargin = name.starts_with("margin");
    const std::string_view rest = name.substr(isMargin ? 6 : 7);
    auto& lengths = isMargin ? style.margin : style.padding;
    const auto set = [&lengths](std::size_t edge, std::string_view text) {
        if (const auto length = marginFrom(text))
            lengths[edge] = length;
    };
    if (rest.empty())
        forEachEdge(css::valueParts(value), set);
    else if (const auto edge = rest.front() == '-' ? edgeNamed(rest.substr(1)) : std::nullopt)
        set(*edge, value);
    return true;
}

void parseDisplay(std::string_view value, StyleDeclarations& style)
{
    if (equalsFolded(value, "none"))
        style.display = Display::None;
    else if (value.size() >= 6 && equalsFolded(value.substr(0, 6), "inline"))
        style.display = Display::Inline;
    else if (equalsFolded(value, "block") || equalsFolded(value, "list-item") ||
             equalsFolded(value, "flex") || equalsFolded(value, "grid") ||
             equalsFolded(value, "table") || equalsFolded(value, "flow-root"))
        style.display = Display::Block;
}

void parseBackground(std::string_view value, StyleDeclarations& style)
{
    for (const std::string_view part : css::valueParts(value)) {
        if (const auto color = css::colorFrom(part)) {
            style.background = color;
            return;
        }
    }
    if (equalsFolded(value, "none") || equalsFolded(value, "0"))
        style.background = css::ColorValue{{0, 0, 0, 0}};
}

// list-style and list-style-type.
void parseListStyle(std::string_view value, StyleDeclarations& style)
{
    for (const std::string_view part : css::valueParts(value)) {
        if (part.front() == '"' || part.front() == '\'') {
            const std::string text = css::unquoted(part);
            QString marker =
                QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).trimmed();
            marker.remove(u'{').remove(u'}');
            style.listMarkerFormat = marker.left(16);
        } else if (auto format = markerFormatForListType(part)) {
            style.listMarkerFormat = std::move(format);
        }
    }
}

} // namespace

std::optional<QString> markerFormatForListType(std::string_view type)
{
    struct Entry {
        std::string_view name;
        const char* format;
    };
    static constexpr std::array<Entry, 14> formats = {{
        {"disc", "{disc}"},
        {"circle", "{circle}"},
        {"square", "{square}"},
        {"decimal", "{decimal}."},
        {"decimal-leading-zero", "{decimal}."},
        {"lower-alpha", "{lower-alpha}."},
        {"lower-latin", "{lower-alpha}."},
        {"upper-alpha", "{upper-alpha}."},
        {"upper-latin", "{upper-alpha}."},
        {"lower-roman", "{lower-roman}."},
        {"upper-roman", "{upper-roman}."},
        {"lower-greek", "{lower-alpha}."},
        {"hyphen", "{hyphen}"},
        {"none", ""},
    }};
    for (const Entry& entry : formats) {
        if (equalsFolded(type, entry.name))
            return QString::fromLatin1(entry.format);
    }
    return std::nullopt;
}

bool parseBoxProperty(std::string_view name, std::string_view value, StyleDeclarations& style)
{
    if (name.starts_with("margin") || name.starts_with("padding"))
        return parseSpacing(name, value, style);
    if (name == "border") {
        style.border.fill(borderFrom(css::valueParts(value)));
        return true;
    }
    if (name.starts_with("border-"))
        return parseBorder(name.substr(7), value, style);
    if (name == "background") {
        parseBackground(value, style);
    } else if (name == "background-color") {
        if (const auto color = css::colorFrom(value))
            style.background = color;
    } else if (name == "display") {
        parseDisplay(value, style);
    } else if (name == "width" || name == "height") {
        const auto length = css::lengthFrom(value);
        if (length && length->value >= 0)
            (name == "width" ? style.width : style.height) = length;
    } else if (name == "list-style" || name == "list-style-type") {
        parseListStyle(value, style);
    } else if (name == "empty-cells") {
        style.hidesEmptyCells = equalsFolded(value, "hide");
    } else {
        return false;
    }
    return true;
}

} // namespace platform::html
