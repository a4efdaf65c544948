// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/propertylist/PropertyListUid.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <optional>

namespace platform {

// Property lists, as QVariants:
//
//   dictionary   QVariantMap, so keys come in code unit order; QVariantHash and other maps with
//   text
//                keys are taken too
//   array        QVariantList; QStringList and other lists are taken too
//   string       QString
//   data         QByteArray
//   boolean      bool
//   integer      qlonglong; qulonglong above its range. Every C++ integer type is taken.
//   real         float (32-bit) or double (64-bit): binary keeps the width, XML reads as double
//   date         QDateTime in UTC
//   UID          PropertyListUid
//
// Any other value, a missing one included, is an error: nothing is dropped silently. Lists and
// dictionaries nest at most 512 deep, both ways.
//
// Texts: an unpaired surrogate is written as U+FFFD, and in XML so is each character that XML 1.0
// forbids (most control characters, U+FFFE, U+FFFF). Lengths in UTF-16 stay as they are. Two keys
// that would become one are an error.
//
// Dates: XML holds whole seconds, rounded down, of the years 1 to 9999; binary holds a double.
enum class PropertyListFormat { Xml, Binary };

// False for a date that is invalid or outside the years of an XML property list.
[[nodiscard]] bool xmlPropertyListHoldsDate(const QDateTime& date);

[[nodiscard]] std::optional<QByteArray>
propertyListData(const QVariant& value, PropertyListFormat format, Error* error = nullptr);

// Reads binary, XML and the old text form ({ key = value; }), told apart by their first bytes.
[[nodiscard]] std::optional<QVariant> propertyListFromData(QByteArrayView data,
                                                           Error* error = nullptr);

[[nodiscard]] std::optional<QVariant> readPropertyList(const QString& path, Error* error = nullptr);

// Writes the whole file or leaves what was there.
[[nodiscard]] bool writePropertyList(const QString& path, const QVariant& value,
                                     PropertyListFormat format, Error* error = nullptr);

} // namespace platform
