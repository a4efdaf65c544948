// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/StringEncoding.h"

#include <QString>

// At most length bytes, ending early at a zero byte, decoded; U+FFFD for what the encoding does not have.
// Empty without bytes, and for a length of 0 or less. The bytes need not end in a zero.
[[nodiscard]] QString stringWithCString(const char* bytes, platform::StringEncoding encoding, qsizetype length);

// The quantity in plain digits, a blank, and the singular for exactly 1, the plural for all else, 0 and -1
// too. Both words come translated from the caller.
[[nodiscard]] QString stringWithQuantity(qint64 quantity, const QString& singularDescription,
                                         const QString& pluralDescription);

// The time that remains, in its largest unit alone, translated: "1 hour remaining" for 5400 seconds. Days,
// hours and minutes are rounded down, seconds up. Times below 0 are told in days, rounded down too. What is
// no number counts as 0, and what is out of a 64-bit number's range as its limit.
//
// The texts in the translation tables, each with %ld for the count: "%ld day remaining", "%ld days
// remaining", and the same with hour, minute and second.
[[nodiscard]] QString stringForTimeInterval(double seconds);
