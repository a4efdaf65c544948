// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/StyleDeclarations.h"

#include <array>
#include <utility>

namespace platform::html {

namespace {

using css::equalsFolded;

struct GenericFamily {
    std::string_view name;
    const char* family;
    bool monospaced;
};

constexpr std::array<GenericFamily, 12> genericFamilies = {{
    {"sans-serif", "Helvetica", false},
    {"serif", "Times New Roman", false},
    {"monospace", "Menlo", true},
    {"cursive", "Apple Chancery", false},
    {"fantasy", "Papyrus", false},
    {"system-ui", ".AppleSystemUIFont", false},
    {"-apple-system", ".AppleSystemUIFont", false},
    {"blinkmacsystemfont", ".AppleSystemUIFont", false},
    {"ui-sans-serif", ".AppleSystemUIFont", false},
    {"ui-serif", "Times New Roman", false},
    {"ui-monospace", "Menlo", true},
    {"ui-rounded", ".AppleSystemUIFont", false},
}};

// Programmers' fonts that no Mac has: their text must stay fixed pitch.
bool namesFixedPitch(const QString& family)
{
    for (const char* part :
         {"mono", "consol", "courier", "typewriter", "terminal", "source code", "fira code"}) {
        if (family.contains(QLatin1String(part), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

// The sizes that the words stand for, as shares of medium.
constexpr std::array<std::pair<std::string_view, double>, 8> namedSizes = {{
    {"xx-small", 9.0 / 16},
    {"x-small", 10.0 / 16},
    {"small", 13.0 / 16},
    {"medium", 1},
    {"large", 18.0 / 16},
    {"x-large", 24.0 / 16},
    {"xx-large", 32.0 / 16},
    {"xxx-large", 48.0 / 16},
}};

constexpr double stepBetweenSizes = 1.2;

std::optional<FontSize> fontSizeFrom(std::string_view value)
{
    for (const auto& [name, factor] : namedSizes) {
        if (equalsFolded(value, name))
            return FontSize{FontSize::Kind::Medium, {}, factor};
    }
    if (equalsFolded(value, "smaller"))
        return FontSize{FontSize::Kind::Parent, {}, 1 / stepBetweenSizes};
    if (equalsFolded(value, "larger"))
        return FontSize{FontSize::Kind::Parent, {}, stepBetweenSizes};
    const std::optional<css::Length> length = css::lengthFrom(value);
    if (!length || length->value < 0)
        return std::nullopt;
    return FontSize{FontSize::Kind::Length, *length};
}

std::optional<FontWeight> weightFrom(std::string_view value)
{
    if (equalsFolded(value, "normal"))
        return FontWeight::Normal;
    if (equalsFolded(value, "bold"))
        return FontWeight::Bold;
    if (equalsFolded(value, "bolder"))
        return FontWeight::Bolder;
    if (equalsFolded(value, "lighter"))
        return FontWeight::Lighter;
    std::string_view rest;
    const std::optional<double> number = css::numberIn(value, &rest);
    if (!number || !rest.empty() || *number < 1 || *number > 1000)
        return std::nullopt;
    return *number >= 600 ? FontWeight::Bold : FontWeight::Normal;
}

std::optional<bool> slantFrom(std::string_view value)
{
    if (equalsFolded(value, "normal"))
        return false;
    if (equalsFolded(value, "italic") || equalsFolded(value, "oblique"))
        return true;
    return std::nullopt;
}

bool isKeywordForAll(std::string_view value)
{
    return equalsFolded(value, "inherit") || equalsFolded(value, "initial") ||
           equalsFolded(value, "unset") || equalsFolded(value, "revert");
}

// font: [style || variant || weight || stretch]? size[/line-height]? family-list
void parseShorthand(std::string_view value, StyleDeclarations& style)
{
    const std::vector<std::string_view> parts = css::valueParts(value);
    StyleDeclarations found;
    found.italic = false;
    found.weight = FontWeight::Normal;
    found.lineHeight = LineHeight{};
    std::size_t index = 0;
    for (; index < parts.size() && !found.fontSize; ++index) {
        const std::string_view part = parts[index];
        if (equalsFolded(part, "normal") || equalsFolded(part, "small-caps"))
            continue;
        if (const auto slant = slantFrom(part))
            found.italic = slant;
        else if (const auto weight = weightFrom(part))
            found.weight = weight;
        else
            found.fontSize = fontSizeFrom(part);
    }
    if (!found.fontSize || index == parts.size())
        return; // a system font (caption, menu), or nothing that is meant for a font
    if (parts[index] == "/" && index + 1 < parts.size()) {
        parseTextProperty("line-height", parts[index + 1], found);
        index += 2;
    }
    if (index == parts.size())
        return;
    const std::string_view first = parts[index];
    found.family =
        familyFromList(value.substr(static_cast<std::size_t>(first.data() - value.data())));
    if (found.family)
        style.mergeOver(found);
}

} // namespace

std::optional<FamilyChoice> familyFromList(std::string_view list)
{
    const std::vector<std::string_view> parts = css::valueParts(list);
    bool isNamed = false;
    bool wantsFixedPitch = false;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        // A name without quotes may be of several words.
        std::string name;
        const bool isQuoted = parts[index].front() == '"' || parts[index].front() == '\'';
        for (; index < parts.size() && parts[index] != ","; ++index) {
            if (!name.empty())
                name += ' ';
            name += css::unquoted(parts[index]);
        }
        if (name.empty())
            continue;
        if (!isQuoted) {
            if (isKeywordForAll(name))
                return std::nullopt;
            for (const GenericFamily& generic : genericFamilies) {
                if (equalsFolded(name, generic.name)) {
                    const bool fixed = generic.monospaced || wantsFixedPitch;
                    return FamilyChoice{QString::fromLatin1(fixed ? "Menlo" : generic.family),
                                        fixed};
                }
            }
        }
        isNamed = true;
        const QString family = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
        if (const auto font = Font::fontNamed(family, 0))
            return FamilyChoice{font->family, font->monospaced};
        wantsFixedPitch = wantsFixedPitch || namesFixedPitch(family);
    }
    if (!isNamed)
        return std::nullopt;
    return wantsFixedPitch ? FamilyChoice{QStringLiteral("Menlo"), true} : FamilyChoice{};
}

bool parseFontProperty(std::string_view name, std::string_view value, StyleDeclarations& style)
{
    if (name == "font-family") {
        if (auto family = familyFromList(value))
            style.family = std::move(family);
    } else if (name == "font-size") {
        if (const auto size = fontSizeFrom(value))
            style.fontSize = size;
    } else if (name == "font-weight") {
        if (const auto weight = weightFrom(value))
            style.weight = weight;
    } else if (name == "font-style") {
        const std::vector<std::string_view> parts = css::valueParts(value);
        if (const auto slant = parts.empty() ? std::nullopt : slantFrom(parts.front()))
            style.italic = slant;
    } else if (name == "font") {
        parseShorthand(value, style);
    } else {
        return false;
    }
    return true;
}

} // namespace platform::html
