// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssColors.h"

#include "platform/htmlimport/CssColorNames.h"
#include "platform/htmlimport/CssColorSpaces.h"
#include "platform/htmlimport/CssLengths.h"
#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace platform::css {

namespace {

double clamped(double value)
{
    return std::clamp(value, 0.0, 1.0);
}

int hexadecimalDigit(char character)
{
    const char digit = folded(character);
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return -1;
}

std::optional<ColorValue> fromHexadecimal(std::string_view digits)
{
    if (digits.size() != 3 && digits.size() != 4 && digits.size() != 6 && digits.size() != 8)
        return std::nullopt;
    const bool isShort = digits.size() <= 4;
    std::array<int, 4> bytes = {0, 0, 0, 255};
    const std::size_t count = isShort ? digits.size() : digits.size() / 2;
    for (std::size_t index = 0; index < count; ++index) {
        const int high = hexadecimalDigit(digits[isShort ? index : 2 * index]);
        const int low = isShort ? high : hexadecimalDigit(digits[2 * index + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes[index] = high * 16 + low;
    }
    return ColorValue{Color::fromRgb8(bytes[0], bytes[1], bytes[2], bytes[3] / 255.0)};
}

// The red, green or blue of a hue; hue from 0 to 1.
double hueChannel(double low, double high, double hue)
{
    hue -= std::floor(hue);
    if (hue < 1.0 / 6)
        return low + (high - low) * 6 * hue;
    if (hue < 1.0 / 2)
        return high;
    if (hue < 2.0 / 3)
        return low + (high - low) * (2.0 / 3 - hue) * 6;
    return low;
}

Color fromHsl(double hue, double saturation, double lightness, double alpha)
{
    const double high = lightness <= 0.5 ? lightness * (1 + saturation)
                                         : lightness + saturation - lightness * saturation;
    const double low = 2 * lightness - high;
    return {hueChannel(low, high, hue + 1.0 / 3), hueChannel(low, high, hue),
            hueChannel(low, high, hue - 1.0 / 3), alpha};
}

Color fromHwb(double hue, double whiteness, double blackness, double alpha)
{
    const double sum = whiteness + blackness;
    if (sum >= 1)
        return {whiteness / sum, whiteness / sum, whiteness / sum, alpha};
    Color pure = fromHsl(hue, 1, 0.5, alpha);
    for (double* channel : {&pure.red, &pure.green, &pure.blue})
        *channel = *channel * (1 - sum) + whiteness;
    return pure;
}

// In turns.
std::optional<double> hueFrom(std::string_view text)
{
    std::string_view rest;
    const std::optional<double> number = numberIn(text, &rest);
    if (!number)
        return std::nullopt;
    if (equalsFolded(rest, "turn"))
        return *number;
    if (equalsFolded(rest, "rad"))
        return *number / (2 * 3.14159265358979323846);
    if (equalsFolded(rest, "grad"))
        return *number / 400;
    return *number / 360;
}

// From 0 to 1; a number without a percent sign counts up to whole.
std::optional<double> shareFrom(std::string_view text, double whole)
{
    if (equalsFolded(text, "none"))
        return 0;
    std::string_view rest;
    const std::optional<double> number = numberIn(text, &rest);
    if (!number)
        return std::nullopt;
    return clamped(*number / (rest.starts_with('%') ? 100 : whole));
}

std::optional<ColorValue> fromFunction(const Function& function)
{
    std::vector<std::string_view> parts = valueParts(function.arguments);
    std::erase_if(parts, [](std::string_view part) { return part == "," || part == "/"; });
    const std::size_t count = equalsFolded(function.name, "color") ? 4 : 3;
    if (parts.size() < count || parts.size() > count + 1)
        return std::nullopt;
    const std::optional<double> alpha = parts.size() > count ? shareFrom(parts.back(), 1) : 1.0;
    if (!alpha)
        return std::nullopt;
    parts.resize(count);
    if (const auto color = colorFromSpace(function.name, parts, *alpha))
        return ColorValue{*color};

    if (equalsFolded(function.name, "rgb") || equalsFolded(function.name, "rgba")) {
        const auto red = shareFrom(parts[0], 255);
        const auto green = shareFrom(parts[1], 255);
        const auto blue = shareFrom(parts[2], 255);
        if (!red || !green || !blue)
            return std::nullopt;
        return ColorValue{{*red, *green, *blue, *alpha}};
    }
    const auto hue = hueFrom(parts[0]);
    const auto second = shareFrom(parts[1], 100);
    const auto third = shareFrom(parts[2], 100);
    if (!hue || !second || !third)
        return std::nullopt;
    if (equalsFolded(function.name, "hsl") || equalsFolded(function.name, "hsla"))
        return ColorValue{fromHsl(*hue, *second, *third, *alpha)};
    if (equalsFolded(function.name, "hwb"))
        return ColorValue{fromHwb(*hue, *second, *third, *alpha)};
    return std::nullopt;
}

} // namespace

std::optional<ColorValue> colorFrom(std::string_view text)
{
    text = trimmed(text);
    if (text.starts_with('#'))
        return fromHexadecimal(text.substr(1));
    if (text.empty() || text.size() > 200)
        return std::nullopt;
    const Function function = functionIn(text);
    if (!function.name.empty())
        return fromFunction(function);
    std::string name(text);
    std::transform(name.begin(), name.end(), name.begin(), folded);
    if (name == "transparent")
        return ColorValue{{0, 0, 0, 0}};
    if (name == "currentcolor")
        return ColorValue{{}, true};
    const auto rgb = namedColor(name);
    if (!rgb)
        return std::nullopt;
    return ColorValue{Color::fromRgb8(static_cast<int>(*rgb >> 16),
                                      static_cast<int>(*rgb >> 8 & 0xFF),
                                      static_cast<int>(*rgb & 0xFF))};
}

std::optional<ColorValue> colorFromAttribute(std::string_view text)
{
    text = trimmed(text);
    if (const auto color = colorFrom(text))
        return color;
    return text.size() == 3 || text.size() == 6 ? fromHexadecimal(text) : std::nullopt;
}

} // namespace platform::css
