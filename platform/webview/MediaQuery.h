// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

// Media conditions for the page that is loaded: a colour screen of 800 × 600 CSS pixels, one device
// pixel each, light, with a mouse, without scripts.
namespace platform {

inline constexpr double viewWidth = 800;
inline constexpr double viewHeight = 600;

// A media query list, as in a media attribute. An empty list matches; what is not understood does not.
[[nodiscard]] bool mediaQueryMatches(QStringView list, QStringView mediaStyle = u"screen");

// One condition without media types, as in sizes: "(min-width: 600px) and (orientation: landscape)".
[[nodiscard]] bool mediaConditionMatches(QStringView condition);

} // namespace platform
