// SPDX-License-Identifier: MIT
#include "platform/propertylist/TypedStream.h"

#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/TypedStreamReader.h"

#include <cmath>

namespace platform {

namespace {

using Space = TypedStreamColor::Space;

// A named colour may hold another named one; real ones do so once at most.
constexpr int namedColorLimit = 8;
constexpr int namedKind = 6;

struct ColorKind {
    int kind;
    Space space;
    std::size_t componentCount;
};

constexpr ColorKind colorKinds[] = {
    {1, Space::CalibratedRgb, 4}, {2, Space::DeviceRgb, 4},  {3, Space::CalibratedWhite, 2},
    {4, Space::DeviceWhite, 2},   {5, Space::DeviceCmyk, 5},
};

std::optional<TypedStreamColor> plainColor(const std::vector<TypedStream::Value>& values)
{
    for (const ColorKind& known : colorKinds) {
        if (values[0].number != known.kind || values.size() < known.componentCount + 1)
            continue;
        TypedStreamColor color{known.space, {}, {}, {}};
        for (std::size_t position = 1; position <= known.componentCount; ++position) {
            if (values[position].kind != TypedStream::Value::Kind::Number ||
                !std::isfinite(values[position].number))
                return std::nullopt;
            color.components.push_back(values[position].number);
        }
        return color;
    }
    return std::nullopt;
}

} // namespace

std::optional<TypedStream> TypedStream::fromData(QByteArrayView data, Error* error)
{
    std::optional<TypedStream> stream = TypedStreamReader(data).read();
    if (!stream)
        setError(error, propertyListError(PropertyListErrorCode::UnarchivingCorrupt,
                                          "The archive is damaged."));
    return stream;
}

std::optional<TypedStreamColor> TypedStream::color() const
{
    for (const Value& value : m_values) {
        if (value.kind == Value::Kind::Object)
            return colorOf(value);
    }
    return std::nullopt;
}

QList<std::pair<QString, TypedStreamColor>> TypedStream::namedColors() const
{
    QList<std::pair<QString, TypedStreamColor>> colors;
    for (std::size_t position = 0; position + 1 < m_values.size(); ++position) {
        const std::optional<QString> name = textOf(m_values[position + 1]);
        const std::optional<TypedStreamColor> color =
            name ? colorOf(m_values[position]) : std::nullopt;
        if (color)
            colors.append({*name, *color});
    }
    return colors;
}

std::optional<TypedStreamColor> TypedStream::colorOf(const Value& value) const
{
    QString catalogName;
    QString colorName;
    Value current = value;
    for (int level = 0; level < namedColorLimit; ++level) {
        const Object* const object = objectOf(current, "NSColor");
        if (!object || object->values.empty() || object->values[0].kind != Value::Kind::Number)
            return std::nullopt;
        if (object->values[0].number != namedKind) {
            std::optional<TypedStreamColor> color = plainColor(object->values);
            if (color) {
                color->catalogName = catalogName;
                color->colorName = colorName;
            }
            return color;
        }
        if (object->values.size() < 4)
            return std::nullopt;
        if (level == 0) {
            catalogName = textOf(object->values[1]).value_or(QString());
            colorName = textOf(object->values[2]).value_or(QString());
        }
        current = object->values[3];
    }
    return std::nullopt;
}

std::optional<QString> TypedStream::textOf(const Value& value) const
{
    const Object* const object = objectOf(value, "NSString");
    if (!object || object->values.empty() || object->values[0].kind != Value::Kind::Bytes)
        return std::nullopt;
    return QString::fromUtf8(object->values[0].bytes);
}

const TypedStream::Object* TypedStream::objectOf(const Value& value, const char* className) const
{
    if (value.kind != Value::Kind::Object)
        return nullptr;
    const Object& object = m_objects[value.object];
    return object.classNames.contains(QLatin1String(className)) ? &object : nullptr;
}

} // namespace platform
