// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssLengths.h"

#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>
#include <array>

namespace platform::css {

namespace {

constexpr double largestNumber = 1e6;

struct UnitEntry {
    std::string_view name;
    Length::Unit unit;
    double factor;
};

constexpr double pixelsPerInch = 96;

constexpr std::array<UnitEntry, 13> units = {{
    {"px", Length::Unit::Points, 1},
    {"pt", Length::Unit::Points, pixelsPerInch / 72},
    {"em", Length::Unit::Em, 1},
    {"rem", Length::Unit::RootEm, 1},
    {"%", Length::Unit::Percent, 1},
    {"in", Length::Unit::Points, pixelsPerInch},
    {"cm", Length::Unit::Points, pixelsPerInch / 2.54},
    {"mm", Length::Unit::Points, pixelsPerInch / 25.4},
    {"q", Length::Unit::Points, pixelsPerInch / 101.6},
    {"pc", Length::Unit::Points, pixelsPerInch / 6},
    // Without the font's metrics: what most fonts come near to.
    {"ex", Length::Unit::Em, 0.5},
    {"ch", Length::Unit::Em, 0.5},
    {"", Length::Unit::Number, 1},
}};

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

} // namespace

// By hand: the standard readers look at the locale or at forms (hexadecimal, infinity) that CSS
// lacks.
std::optional<double> numberIn(std::string_view text, std::string_view* rest)
{
    std::size_t position = 0;
    double sign = 1;
    if (position < text.size() && (text[position] == '-' || text[position] == '+'))
        sign = text[position++] == '-' ? -1 : 1;
    double value = 0;
    bool hasDigits = false;
    for (; position < text.size() && isDigit(text[position]); ++position, hasDigits = true)
        value = std::min(value * 10 + (text[position] - '0'), largestNumber);
    if (position + 1 < text.size() && text[position] == '.' && isDigit(text[position + 1])) {
        double place = 0.1;
        for (++position; position < text.size() && isDigit(text[position]);
             ++position, hasDigits = true) {
            value += place * (text[position] - '0');
            place /= 10;
        }
    } else if (hasDigits && position < text.size() && text[position] == '.') {
        ++position; // "12.px" is not CSS, but its meaning is plain
    }
    if (!hasDigits)
        return std::nullopt;
    if (rest)
        *rest = text.substr(position);
    return sign * value;
}

std::optional<Length> lengthFrom(std::string_view text)
{
    std::string_view rest;
    const std::optional<double> number = numberIn(trimmed(text), &rest);
    if (!number)
        return std::nullopt;
    const std::string_view unitName = trimmed(rest);
    for (const UnitEntry& entry : units) {
        if (equalsFolded(unitName, entry.name))
            return Length{*number * entry.factor, entry.unit};
    }
    return std::nullopt;
}

std::optional<Length> lengthFromAttribute(std::string_view text)
{
    std::string_view rest;
    const std::optional<double> number = numberIn(trimmed(text), &rest);
    if (!number || *number < 0)
        return std::nullopt;
    if (trimmed(rest).starts_with('%'))
        return Length{*number, Length::Unit::Percent};
    const std::optional<Length> withUnit = lengthFrom(text);
    if (withUnit && withUnit->unit != Length::Unit::Number)
        return withUnit;
    return Length{*number, Length::Unit::Points};
}

std::optional<double> points(const Length& length, double fontSize, double rootFontSize,
                             std::optional<double> percentOf)
{
    switch (length.unit) {
    case Length::Unit::Points:
        return length.value;
    case Length::Unit::Em:
        return length.value * fontSize;
    case Length::Unit::RootEm:
        return length.value * rootFontSize;
    case Length::Unit::Percent:
        if (percentOf)
            return length.value / 100 * *percentOf;
        return std::nullopt;
    case Length::Unit::Number:
        // Only nought means a length without a unit; pages that forget the unit mean pixels, as
        // browsers read them in their lenient mode.
        return length.value;
    }
    return std::nullopt;
}

} // namespace platform::css
