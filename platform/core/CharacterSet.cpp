// SPDX-License-Identifier: MIT
#include "platform/core/CharacterSet.h"

namespace platform {

bool isWhitespaceCharacter(char16_t unit)
{
    return unit == u'\t' || unit == u' ' || unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200B)
           || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

bool isNewlineCharacter(char16_t unit)
{
    return (unit >= 0x0A && unit <= 0x0D) || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

bool isWhitespaceOrNewlineCharacter(char16_t unit)
{
    return isWhitespaceCharacter(unit) || isNewlineCharacter(unit);
}

QStringView trimmedOfWhitespaceAndNewlines(QStringView text)
{
    while (!text.isEmpty() && isWhitespaceOrNewlineCharacter(text.front().unicode()))
        text = text.sliced(1);
    while (!text.isEmpty() && isWhitespaceOrNewlineCharacter(text.back().unicode()))
        text.chop(1);
    return text;
}

} // namespace platform
