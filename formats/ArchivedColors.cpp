// SPDX-License-Identifier: MIT
#include "formats/ArchivedColors.h"

#include "platform/defaults/UserDefaults.h"
#include "platform/propertylist/ColorData.h"

using platform::Color;
using platform::ColorData;

namespace {

std::optional<Color> colorFrom(const std::optional<ColorData>& data)
{
    if (!data)
        return std::nullopt;
    const Color::Space space
        = data->space == ColorData::Space::CalibratedRgb ? Color::Space::CalibratedRgb : Color::Space::DeviceRgb;
    return Color{data->red, data->green, data->blue, data->alpha, space};
}

} // namespace

std::optional<Color> colorForDefaultsKey(const QString& key)
{
    const std::optional<QByteArray> archive = platform::UserDefaults::standard().dataForKey(key);
    return archive ? colorFrom(platform::colorFromArchiveData(*archive)) : std::nullopt;
}

std::optional<Color> colorOfArchivedObject(const platform::ArchiveValue& object)
{
    return colorFrom(platform::colorFromArchivedObject(object));
}
