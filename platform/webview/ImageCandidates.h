// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// The one image of an img or source element that a screen with one device pixel to the CSS pixel shows,
// as written; empty when there is none. srcset and sizes are the attributes' values; src joins the
// candidates only where no candidate is meant for this screen or has a width.
[[nodiscard]] QString chosenImage(QStringView srcset, QStringView sizes, const QString& src);

// What the sizes attribute makes of an 800 pixels wide view, in pixels.
[[nodiscard]] double sourceSize(QStringView sizes);

} // namespace platform
