// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// A fresh random UUID in its canonical text form: upper case, hyphenated, without braces.
[[nodiscard]] QString newUuidString();

} // namespace platform
