// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"

#include <optional>
#include <string_view>
#include <vector>

namespace platform::css {

// The functions that name a colour by a space of its own: lab(), lch(), oklab(), oklch() and color()
// with any of the spaces that CSS predefines. arguments: without commas, slashes and alpha. What lies
// beyond the screen's colours is cut off at them, each component by itself. None for another function
// and for arguments that make no sense.
[[nodiscard]] std::optional<Color>
colorFromSpace(std::string_view function, const std::vector<std::string_view>& arguments,
               double alpha);

} // namespace platform::css
