// SPDX-License-Identifier: MIT
#include "platform/propertylist/ColorData.h"

#include "platform/propertylist/KeyedUnarchiver.h"
#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/TypedStream.h"

#include <cmath>

namespace platform {

namespace {

using Space = ColorData::Space;

// NSColorSpace of a keyed colour.
enum KeyedSpace : qint64 {
    CalibratedRgb = 1,
    DeviceRgb,
    CalibratedWhite,
    DeviceWhite,
    Cmyk,
    Named
};

// NSID of the custom colour space sRGB.
constexpr qint64 srgbIdentifier = 7;
constexpr int namedColorLimit = 8;

std::optional<ColorData> colorFromComponents(std::vector<double> components,
                                             std::size_t colorantCount, Space space)
{
    if (components.size() < colorantCount)
        return std::nullopt;
    for (double& component : components) {
        if (!std::isfinite(component))
            return std::nullopt;
        component = std::clamp(component, 0.0, 1.0);
    }
    const double alpha = components.size() > colorantCount ? components[colorantCount] : 1;
    if (colorantCount == 1)
        return ColorData{components[0], components[0], components[0], alpha, space};
    if (colorantCount == 3)
        return ColorData{components[0], components[1], components[2], alpha, space};
    const double black = components[3];
    const auto light = [black](double ink) {
        return 1 - std::min(1.0, ink + black);
    };
    return ColorData{light(components[0]), light(components[1]), light(components[2]), alpha,
                     space};
}

// Numbers in ASCII between blanks, with a NUL at the end or none.
std::vector<double> componentsFromText(const QByteArray& text)
{
    const QByteArray numbers = text.split('\0').constFirst().simplified();
    std::vector<double> components;
    for (const QByteArray& number : numbers.split(' ')) {
        bool isNumber = false;
        components.push_back(number.toDouble(&isNumber));
        if (!isNumber)
            return {};
    }
    return components;
}

QByteArray bytesForKey(const ArchivedObject& object, const char* key)
{
    const ArchivedObject::Field* const field = object.fieldForKey(QLatin1String(key));
    if (!field)
        return {};
    return field->form == ArchivedObject::Field::Form::Plain ? field->plain.toByteArray()
                                                             : field->references.value(0).toData();
}

qint64 integerForKey(const ArchivedObject& object, const char* key)
{
    const ArchivedObject::Field* const field = object.fieldForKey(QLatin1String(key));
    return field ? field->plain.toLongLong() : 0;
}

bool isSrgb(const ArchivedObject& color)
{
    const ArchiveValue space = color.referenceForKey(QStringLiteral("NSCustomColorSpace"));
    const ArchivedObject* const record = space.toUnknown();
    return record && integerForKey(*record, "NSID") == srgbIdentifier;
}

std::optional<ColorData> rgbColor(const ArchivedObject& color, Space space)
{
    // NSRGB is the same colour in an older space, for readers that know no custom ones.
    const QByteArray components = bytesForKey(color, "NSComponents");
    if (!components.isEmpty() && isSrgb(color))
        return colorFromComponents(componentsFromText(components), 3, Space::DeviceRgb);
    return colorFromComponents(componentsFromText(bytesForKey(color, "NSRGB")), 3, space);
}

std::optional<ColorData> colorFromTypedStream(QByteArrayView data)
{
    const std::optional<TypedStream> stream = TypedStream::fromData(data);
    const std::optional<TypedStreamColor> color = stream ? stream->color() : std::nullopt;
    if (!color)
        return std::nullopt;
    switch (color->space) {
    case TypedStreamColor::Space::CalibratedRgb:
        return colorFromComponents(color->components, 3, Space::CalibratedRgb);
    case TypedStreamColor::Space::DeviceRgb:
        return colorFromComponents(color->components, 3, Space::DeviceRgb);
    case TypedStreamColor::Space::CalibratedWhite:
        return colorFromComponents(color->components, 1, Space::CalibratedRgb);
    case TypedStreamColor::Space::DeviceWhite:
        return colorFromComponents(color->components, 1, Space::DeviceRgb);
    case TypedStreamColor::Space::DeviceCmyk:
        return colorFromComponents(color->components, 4, Space::DeviceRgb);
    }
    return std::nullopt;
}

} // namespace

std::optional<ColorData> colorFromArchiveData(QByteArrayView data, Error* error)
{
    std::optional<ColorData> color;
    if (data.startsWith("\x04\x0B")) {
        color = colorFromTypedStream(data);
    } else if (const auto root = KeyedUnarchiver::unarchivedRootObject(data)) {
        color = colorFromArchivedObject(*root);
    }
    if (!color)
        setError(error, propertyListError(PropertyListErrorCode::UnarchivingCorrupt,
                                          "This is no archived colour."));
    return color;
}

std::optional<ColorData> colorFromArchivedObject(const ArchiveValue& object)
{
    ArchiveValue current = object;
    for (int level = 0; level < namedColorLimit; ++level) {
        const ArchivedObject* const color = current.toUnknown();
        if (!color || !color->classNames.contains(QLatin1String("NSColor")))
            return std::nullopt;
        switch (integerForKey(*color, "NSColorSpace")) {
        case CalibratedRgb:
            return rgbColor(*color, Space::CalibratedRgb);
        case DeviceRgb:
            return rgbColor(*color, Space::DeviceRgb);
        case CalibratedWhite:
            return colorFromComponents(componentsFromText(bytesForKey(*color, "NSWhite")), 1,
                                       Space::CalibratedRgb);
        case DeviceWhite:
            return colorFromComponents(componentsFromText(bytesForKey(*color, "NSWhite")), 1,
                                       Space::DeviceRgb);
        case Cmyk:
            return colorFromComponents(componentsFromText(bytesForKey(*color, "NSCMYK")), 4,
                                       Space::DeviceRgb);
        case Named: {
            const ArchiveValue nested = color->referenceForKey(QStringLiteral("NSColor"));
            current = nested;
            break;
        }
        default:
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace platform
