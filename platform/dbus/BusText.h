// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// The bus carries texts as UTF-8 that ends at its first zero byte. Readers take a U+FEFF at the
// very front for a mark of the encoding and drop it.

// The text arrives as it was sent, but for such a mark.
[[nodiscard]] bool isBusText(const QString& text);

// The text with U+FFFD in place of U+0000 and of halves of surrogate pairs.
[[nodiscard]] QString busText(const QString& text);

} // namespace platform
