// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace platform {

// A colour in the device RGB space; components from 0 to 1.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    // The space that the colour came from; it decides how the colour is archived. A pattern is an
    // image and has no components.
    enum class Space { DeviceRgb, CalibratedRgb, Pattern };
    Space space = Space::DeviceRgb;

    // The same colour in the device RGB space; none for a pattern.
    [[nodiscard]] std::optional<Color> inDeviceRgb() const
    {
        if (space == Space::Pattern)
            return std::nullopt;
        return Color{red, green, blue, alpha, Space::DeviceRgb};
    }

    [[nodiscard]] static Color fromRgb8(int red, int green, int blue, double alpha = 1)
    {
        return {red / 255.0, green / 255.0, blue / 255.0, alpha};
    }

    friend bool operator==(const Color& left, const Color& right) = default;
};

} // namespace platform
