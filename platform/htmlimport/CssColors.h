// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"

#include <optional>
#include <string_view>

namespace platform::css {

// A colour as a style names it.
struct ColorValue {
    Color color;
    bool isCurrentColor = false; // the element's text colour

    [[nodiscard]] bool isTransparent() const { return !isCurrentColor && color.alpha <= 0; }
    [[nodiscard]] Color resolved(const std::optional<Color>& textColor) const
    {
        return isCurrentColor ? textColor.value_or(Color{}) : color;
    }
    friend bool operator==(const ColorValue&, const ColorValue&) = default;
};

// Every notation of CSS: #rgb, #rgba, #rrggbb, #rrggbbaa, rgb(), rgba(), hsl() and hsla() with
// commas or blanks, hwb(), lab() and its kin, color() with its spaces, the named colours,
// transparent and currentColor. None for anything else: inherit, mixed colours, the system's.
[[nodiscard]] std::optional<ColorValue> colorFrom(std::string_view text);

// As HTML attributes write it, where the number sign may be missing.
[[nodiscard]] std::optional<ColorValue> colorFromAttribute(std::string_view text);

} // namespace platform::css
