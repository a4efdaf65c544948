// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace platform {

// A colour as the legacy, non-keyed archive holds it.
struct TypedStreamColor {
    enum class Space { CalibratedRgb, DeviceRgb, CalibratedWhite, DeviceWhite, DeviceCmyk };

    Space space = Space::CalibratedRgb;
    // From 0 to 1: red, green, blue; or white; or cyan, magenta, yellow, black. Alpha is the last.
    std::vector<double> components;
    // For a named colour, whose space and components are those that it had when it was archived.
    QString catalogName;
    QString colorName;
};

// The legacy, non-keyed archive of macOS, in either byte order, read as far as colours need it.
// Memory and time are bounded by the size of the data.
class TypedStream {
public:
    struct Value {
        enum class Kind { None, Number, Bytes, Object };

        Kind kind = Kind::None;
        double number = 0;
        // Text is UTF-8.
        QByteArray bytes;
        // The place in objects().
        std::size_t object = 0;
    };

    struct Object {
        // The class first, its ancestors after it.
        QStringList classNames;
        std::vector<Value> values;
    };

    [[nodiscard]] static std::optional<TypedStream> fromData(QByteArrayView data,
                                                             Error* error = nullptr);

    // In the order in which the stream begins them.
    [[nodiscard]] const std::vector<Object>& objects() const { return m_objects; }
    // What stands outside of every object.
    [[nodiscard]] const std::vector<Value>& values() const { return m_values; }

    // The colour that was archived; none when the first object is no colour or one that numbers
    // cannot tell, such as a pattern.
    [[nodiscard]] std::optional<TypedStreamColor> color() const;
    // The pairs of a name and a colour that a list of colours holds.
    [[nodiscard]] QList<std::pair<QString, TypedStreamColor>> namedColors() const;

private:
    friend class TypedStreamReader;

    [[nodiscard]] std::optional<TypedStreamColor> colorOf(const Value& value) const;
    [[nodiscard]] std::optional<QString> textOf(const Value& value) const;
    [[nodiscard]] const Object* objectOf(const Value& value, const char* className) const;

    std::vector<Object> m_objects;
    std::vector<Value> m_values;
};

} // namespace platform
