// SPDX-License-Identifier: MIT
#include "exports/XmlBytes.h"

#include <QtEndian>

#include <array>
#include <bit>
#include <charconv>
#include <cstring>

namespace xmlbytes {

namespace {

// Sixteen bytes that are compared at once. Left to the compiler, the loop over them is not, and
// takes twenty times as long. Signed, so that what is beyond ASCII is below it.
using Block = signed char __attribute__((vector_size(16)));

// The bytes that may be special are 0xFF. Line feeds are none; the other white space is so rare
// that it is told from control characters later.
template <bool inText, typename Bytes>
auto suspects(Bytes bytes)
{
    auto found = ((bytes < 0x20) & (bytes != '\n')) | (bytes == ']');
    if constexpr (inText)
        found |= (bytes == '<') | (bytes == '&');
    return found;
}

template <bool inText>
Block suspectsInBlock(const char* bytes)
{
    Block block;
    std::memcpy(&block, bytes, sizeof(Block));
    return suspects<inText>(block);
}

// The position of the first byte that is not 0; the block's length when all are.
qsizetype firstIn(const Block& block)
{
    std::array<quint64, sizeof(Block) / sizeof(quint64)> parts;
    std::memcpy(parts.data(), &block, sizeof(Block));
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (parts[part] != 0)
            return static_cast<qsizetype>(part * sizeof(quint64)) +
                   std::countr_zero(qToLittleEndian(parts[part])) / 8;
    }
    return sizeof(Block);
}

template <bool inText>
const char* firstSuspect(const char* begin, const char* end)
{
    constexpr qsizetype length = sizeof(Block);
    while (end - begin >= length) {
        const qsizetype first = firstIn(suspectsInBlock<inText>(begin));
        begin += first;
        if (first < length)
            return begin;
        while (end - begin >= 4 * length &&
               firstIn(suspectsInBlock<inText>(begin) | suspectsInBlock<inText>(begin + length) |
                       suspectsInBlock<inText>(begin + 2 * length) |
                       suspectsInBlock<inText>(begin + 3 * length)) == length)
            begin += 4 * length;
    }
    while (begin != end && !suspects<inText>(static_cast<signed char>(*begin)))
        ++begin;
    return begin;
}

template <bool inText>
const char* firstSpecial(const char* begin, const char* end)
{
    const char* place = firstSuspect<inText>(begin, end);
    while (place != end && isWhiteSpace(*place))
        place = firstSuspect<inText>(place + 1, end);
    return place;
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
