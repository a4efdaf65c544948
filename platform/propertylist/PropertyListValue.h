// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertylist/PropertyList.h"

namespace platform {

// How deep lists and dictionaries may nest. Destroying and copying nested variants is recursive, so
// that without a limit a small hostile file could exhaust the stack.
inline constexpr int propertyListDepthLimit = 512;

// Seconds from 1970 to 2001, the epoch of dates in binary property lists and keyed archives.
inline constexpr qint64 secondsTo2001 = 978307200;

// The value as exactly one of the types that property lists are read as; containers keep their
// elements as they are. None for a type that property lists do not have, and for invalid dates.
[[nodiscard]] std::optional<QVariant> canonicalPropertyListValue(const QVariant& value);

// Seconds since 2001; none for an invalid date.
[[nodiscard]] std::optional<double> secondsSince2001(const QDateTime& date);
// None for what is no number or too far off for any calendar.
[[nodiscard]] std::optional<QDateTime> dateFromSecondsSince2001(double seconds);

enum class TextRepair {
    // Unpaired surrogates become U+FFFD.
    Surrogates,
    // And so does every character that XML 1.0 forbids.
    ForXml
};
[[nodiscard]] QString repairedText(const QString& text, TextRepair repair);

// False when two different keys become one by the repair.
[[nodiscard]] bool keysStayDistinct(const QVariantMap& dictionary, TextRepair repair);

} // namespace platform
