// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace platform::css {

// 0xRRGGBB of a named colour of CSS.
[[nodiscard]] std::optional<std::uint32_t> namedColor(std::string_view lowerCaseName);

} // namespace platform::css
