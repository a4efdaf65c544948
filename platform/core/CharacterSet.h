// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The platform's character sets, on single UTF-16 code units: every member is in the Basic Multilingual
// Plane.
namespace platform {

// Horizontal tab and Unicode's blanks: 09, 20, A0, 1680, 2000 to 200B, 202F, 205F, 3000.
[[nodiscard]] bool isWhitespaceCharacter(char16_t unit);
// Line ends: 0A to 0D, 85, 2028, 2029.
[[nodiscard]] bool isNewlineCharacter(char16_t unit);
[[nodiscard]] bool isWhitespaceOrNewlineCharacter(char16_t unit);

// The text without white space and line ends at both ends.
[[nodiscard]] QStringView trimmedOfWhitespaceAndNewlines(QStringView text);

} // namespace platform
