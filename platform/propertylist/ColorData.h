// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/propertylist/ArchiveValue.h"

#include <QByteArrayView>

#include <optional>

namespace platform {

// An archived colour as red, green, blue and alpha from 0 to 1.
struct ColorData {
    // What the numbers are relative to. sRGB counts as the device's space.
    enum class Space { DeviceRgb, CalibratedRgb };

    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    Space space = Space::DeviceRgb;

    friend bool operator==(const ColorData& left, const ColorData& right) = default;
};

// The colour in the bytes of a setting: a legacy archive or a keyed one. Grey and CMYK become red,
// green and blue, without a colour profile; a named colour is the one that was archived along with
// its name. Patterns have no numbers and fail.
[[nodiscard]] std::optional<ColorData> colorFromArchiveData(QByteArrayView data,
                                                            Error* error = nullptr);

// The colour that an NSColor of a keyed archive stands for.
[[nodiscard]] std::optional<ColorData> colorFromArchivedObject(const ArchiveValue& object);

} // namespace platform
