// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/KeyedUnarchiver.h"

#include <QRectF>
#include <QString>

// How Quillery's records hold ranges and rectangles in a keyed archive.

// A range as the text "{location, length}".
void encodeRangeInQuillery(platform::KeyedArchiver& coder, platform::TextRange range,
                           const QString& key);
// The first two numbers in the text; {0, 0} where there is none.
[[nodiscard]] platform::TextRange decodeRangeInQuilleryForKey(platform::KeyedUnarchiver& coder,
                                                              const QString& key);

// A rectangle as a dictionary of four numbers "x", "y", "width" and "height". They are 32-bit
// floats, so what is finer than a float is lost at every save.
void encodeCGRectInQuillery(platform::KeyedArchiver& coder, const QRectF& rect, const QString& key);
// The zero rectangle where there is none.
[[nodiscard]] QRectF decodeCGRectInQuilleryForKey(platform::KeyedUnarchiver& coder,
                                                  const QString& key);

// The two texts of a range, as the platform writes and reads them.
[[nodiscard]] QString stringFromRange(platform::TextRange range);
[[nodiscard]] platform::TextRange rangeFromString(const QString& text);
