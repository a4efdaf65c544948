// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <string_view>

// The bytes of an XML document in UTF-8, looked at one or many at a time.
namespace xmlbytes {

[[nodiscard]] inline bool isWhiteSpace(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r';
}

[[nodiscard]] inline bool startsName(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
}

[[nodiscard]] inline bool continuesName(char byte)
{
    return startsName(byte) || (byte >= '0' && byte <= '9') || byte == '-' || byte == '.';
}

// The first byte of the text that is not plain: not ASCII, a control character other than white
// space, or one of "<", "&" and "]".
[[nodiscard]] const char* firstSpecialInText(const char* begin, const char* end);
// The same where "<" and "&" are plain, too.
[[nodiscard]] const char* firstSpecialInCData(const char* begin, const char* end);

// How many bytes the character beyond ASCII takes that begins the text; 0 when there is none that
// XML allows, or not all of it.
[[nodiscard]] qsizetype lengthOfCharacter(std::string_view utf8);

// How many bytes the reference takes that begins the text, to a character that XML allows or to one
// of the predefined entities; 0 for any other, or when not all of it is there.
[[nodiscard]] qsizetype lengthOfReference(std::string_view text);
inline constexpr qsizetype longestReference = 12;

} // namespace xmlbytes
