// SPDX-License-Identifier: MIT
#include "platform/htmlimport/Utf8.h"

#include <algorithm>
#include <cstdint>

namespace platform::html {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::uint32_t byteAt(std::string_view text, std::size_t position)
{
    return static_cast<unsigned char>(text[position]);
}

// The length of the well-formed sequence at a position; 0 when there is none.
std::size_t sequenceLength(std::string_view text, std::size_t position)
{
    const std::uint32_t lead = byteAt(text, position);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - position < length)
        return 0;
    const std::uint32_t second = byteAt(text, position + 1);
    // Overlong forms, surrogates and what lies beyond Unicode.
    const std::uint32_t lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const std::uint32_t highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (second < lowest || second > highest)
        return 0;
    for (std::size_t index = 2; index < length; ++index) {
        if ((byteAt(text, position + index) & 0xC0) != 0x80)
            return 0;
    }
    return length;
}

std::uint32_t decoded(std::string_view text, std::size_t position, std::size_t length)
{
    static constexpr std::uint32_t leadMasks[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    std::uint32_t code = byteAt(text, position) & leadMasks[length];
    for (std::size_t index = 1; index < length; ++index)
        code = code << 6 | (byteAt(text, position + index) & 0x3F);
    return code;
}

void appendCode(QString& target, std::uint32_t code)
{
    if (QChar::requiresSurrogates(code)) {
        target += QChar(QChar::highSurrogate(code));
        target += QChar(QChar::lowSurrogate(code));
    } else {
        target += QChar(static_cast<char16_t>(code == 0xFFFC ? 0xFFFD : code));
    }
}

bool isAscii(char character)
{
    return static_cast<unsigned char>(character) < 0x80;
}

} // namespace

void appendUtf8(QString& target, std::string_view utf8)
{
    std::size_t position = 0;
    while (position < utf8.size()) {
        const auto start = utf8.begin() + static_cast<std::ptrdiff_t>(position);
        const auto end = std::find_if_not(start, utf8.end(), isAscii);
        target += QLatin1String(&*start, end - start);
        position = static_cast<std::size_t>(end - utf8.begin());
        while (position < utf8.size() && !isAscii(utf8[position])) {
            const std::size_t length = std::max<std::size_t>(sequenceLength(utf8, position), 1);
            appendCode(target, length == 1 ? 0xFFFD : decoded(utf8, position, length));
            position += length;
        }
    }
}

bool isCleanUtf8(QByteArrayView bytes)
{
    const std::string_view text(bytes.data(), static_cast<std::size_t>(bytes.size()));
    if (text.starts_with(byteOrderMark))
        return false;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length = sequenceLength(text, position);
        if (length == 0 || text[position] == '\0')
            return false;
        position += length;
    }
    return true;
}

std::string cleanedUtf8(QByteArrayView bytes)
{
    std::string_view text(bytes.data(), static_cast<std::size_t>(bytes.size()));
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length = sequenceLength(text, position);
        if (length == 0 || text[position] == '\0')
            result += replacement;
        else
            result += text.substr(position, length);
        position += std::max<std::size_t>(length, 1);
    }
    return result;
}

} // namespace platform::html
