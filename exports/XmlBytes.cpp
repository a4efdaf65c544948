// SPDX-License-Identifier: MIT
#include "exports/XmlBytes.h"

#include <array>
#include <charconv>
#include <cstring>

namespace xmlbytes {

namespace {

// Sixteen bytes that are compared at once. Left to the compiler, the loop over them is not, and
// takes twenty times as long.
using Block = unsigned char __attribute__((vector_size(16)));
using Matches = decltype(Block() == Block());

template <bool inText, typename Bytes>
auto specialBytes(Bytes bytes)
{
    auto special = ((bytes < 0x20) & (bytes != '\n') & (bytes != '\t') & (bytes != '\r')) |
                   (bytes >= 0x80) | (bytes == ']');
    if constexpr (inText)
        special |= (bytes == '<') | (bytes == '&');
    return special;
}

template <bool inText>
Matches specialInBlock(const char* bytes)
{
    Block block;
    std::memcpy(&block, bytes, sizeof(Block));
    return specialBytes<inText>(block);
}

bool isAny(Matches matches)
{
    std::array<quint64, sizeof(Matches) / sizeof(quint64)> halves;
    std::memcpy(halves.data(), &matches, sizeof(Matches));
    return (halves[0] | halves[1]) != 0;
}

template <bool inText>
const char* firstSpecial(const char* begin, const char* end)
{
    constexpr qsizetype length = sizeof(Block);
    // Four blocks a step; where one of them holds something, it is looked for by itself.
    while (end - begin >= 4 * length &&
           !isAny(specialInBlock<inText>(begin) | specialInBlock<inText>(begin + length) |
                  specialInBlock<inText>(begin + 2 * length) |
                  specialInBlock<inText>(begin + 3 * length)))
        begin += 4 * length;
    while (end - begin >= length && !isAny(specialInBlock<inText>(begin)))
        begin += length;
    while (begin != end && !specialBytes<inText>(static_cast<unsigned char>(*begin)))
        ++begin;
    return begin;
}

bool isAllowed(unsigned character)
{
    return character == '\t' || character == '\n' || character == '\r' ||
           (character >= 0x20 && character < 0xD800) ||
           (character >= 0xE000 && character < 0xFFFE) ||
           (character >= 0x10000 && character <= 0x10FFFF);
}

} // namespace

const char* firstSpecialInText(const char* begin, const char* end)
{
    return firstSpecial<true>(begin, end);
}

const char* firstSpecialInCData(const char* begin, const char* end)
{
    return firstSpecial<false>(begin, end);
}

qsizetype lengthOfCharacter(std::string_view utf8)
{
    if (utf8.empty())
        return 0;
    const auto first = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || utf8.size() < length)
        return 0;
    unsigned character = first & (0x7Fu >> length);
    for (std::size_t index = 1; index < length; ++index) {
        const auto byte = static_cast<unsigned char>(utf8[index]);
        if ((byte & 0xC0) != 0x80)
            return 0;
        character = (character << 6) | (byte & 0x3Fu);
    }
    // Longer than need be.
    if ((length == 3 && character < 0x800) || (length == 4 && character < 0x10000))
        return 0;
    return isAllowed(character) ? static_cast<qsizetype>(length) : 0;
}

qsizetype lengthOfReference(std::string_view text)
{
    text = text.substr(0, longestReference);
    const std::size_t semicolon = text.find(';');
    if (semicolon == std::string_view::npos || text[0] != '&')
        return 0;
    std::string_view name = text.substr(1, semicolon - 1);
    const auto length = static_cast<qsizetype>(semicolon + 1);
    if (name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos")
        return length;
    if (name.empty() || name[0] != '#')
        return 0;
    const bool isHexadecimal = name.size() > 1 && name[1] == 'x';
    name.remove_prefix(isHexadecimal ? 2 : 1);
    unsigned character = 0;
    const auto [end, failure] =
        std::from_chars(name.data(), name.data() + name.size(), character, isHexadecimal ? 16 : 10);
    const bool isNumber = failure == std::errc() && end == name.data() + name.size();
    return isNumber && isAllowed(character) ? length : 0;
}

} // namespace xmlbytes
