// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

// Numbers at the beginning of texts, by the platform's rules: leading white space is skipped, what follows
// the number does not matter, and a text without a number means 0.
namespace platform {

[[nodiscard]] double doubleValue(QStringView text);
// Values beyond 64 bits become the nearest limit.
[[nodiscard]] qint64 integerValue(QStringView text);

} // namespace platform
