// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace platform::css {

// A length as a style names it. Absolute units are resolved at once: a CSS pixel is one point of
// the text (the platform's importer never scaled between the two), so 12pt are 16, 1in is 96.
struct Length {
    enum class Unit {
        Points,
        Em, // of the element's font, or of the parent's where a font size is meant
        RootEm,
        Percent,
        Number, // without any unit: line heights
    };
    double value = 0;
    Unit unit = Unit::Points;
    friend bool operator==(const Length&, const Length&) = default;
};

// A number at the start of the text; what stands behind it is left in rest. No exponent runs away:
// values beyond a million are cut off there.
[[nodiscard]] std::optional<double> numberIn(std::string_view text,
                                             std::string_view* rest = nullptr);

// 12px, 1.5em, 80%, 0, 1.2. Words (auto, medium) give none.
[[nodiscard]] std::optional<Length> lengthFrom(std::string_view text);

// As HTML attributes write it: "40", "40px", "40.5px", "50%"; a bare number is in pixels.
[[nodiscard]] std::optional<Length> lengthFromAttribute(std::string_view text);

// In points. percentOf: what 100% is; where nothing is known about it, percentages give none.
[[nodiscard]] std::optional<double> points(const Length& length, double fontSize,
                                           double rootFontSize,
                                           std::optional<double> percentOf = std::nullopt);

} // namespace platform::css
