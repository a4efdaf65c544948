// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfTextEscapes.h"

#include "platform/rtfd/RtfControlWords.h"

namespace platform {

namespace {

// Code page 1252 from 0x80 to 0x9F; 0 where it has no character.
constexpr std::array<char16_t, 32> upperControls = {
    u'\u20AC', 0,         u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', 0,         u'\u017D', 0,
    0,         u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', 0,         u'\u017E', u'\u0178'};

constexpr char16_t bullet = u'\u2022';

constexpr std::array<bool, 128> makePlainCharacters()
{
    std::array<bool, 128> plain{};
    for (std::size_t character = 0x20; character < 0x7F; ++character)
        plain[character] = true;
    plain['\t'] = true;
    plain['\\'] = plain['{'] = plain['}'] = false;
    return plain;
}

constexpr std::array<bool, 128> plainCharacters = makePlainCharacters();

bool isPlain(char16_t character)
{
    return character < plainCharacters.size() && plainCharacters[character];
}

void appendHexEscape(RtfOutput& out, unsigned char byte)
{
    static constexpr char digits[] = "0123456789abcdef";
    const char escape[] = {'\\', '\'', digits[byte >> 4], digits[byte & 15]};
    out.append(escape, sizeof escape);
}

void appendPlain(RtfOutput& out, const char16_t* first, qsizetype count)
{
    char* const target = out.extend(count);
    for (qsizetype index = 0; index < count; ++index)
        target[index] = static_cast<char>(first[index]);
}

// The byte of code page 1252; 0 when it has none.
unsigned char windowsByte(char16_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<unsigned char>(character);
    if (character < 0x152 || character > 0x2122)
        return 0;
    const auto* const found = std::find(upperControls.begin(), upperControls.end(), character);
    return found == upperControls.end()
               ? 0
               : static_cast<unsigned char>(0x80 + (found - upperControls.begin()));
}

enum class Use { Text, Marker, Name };

void appendEscaped(RtfOutput& out, QStringView text, Use use)
{
    const char16_t* position = text.utf16();
    const char16_t* const end = position + text.size();
    bool hasDroppedSubstitutes = false;
    while (position != end) {
        const char16_t* const plainEnd = std::find_if_not(position, end, isPlain);
        if (plainEnd != position) {
            appendPlain(out, position, plainEnd - position);
            position = plainEnd;
            if (position == end)
                return;
        }
        const char16_t character = *position++;
        if (character == u'\\' || character == u'{' || character == u'}') {
            const char escape[] = {'\\', static_cast<char>(character)};
            out.append(escape, sizeof escape);
        } else if (character == u'\f' && use != Use::Name) {
            out.append("\\page \n");
        } else if (const unsigned char byte = windowsByte(character);
                   character == 0 || (byte != 0 && (character != bullet || use != Use::Marker))) {
            appendHexEscape(out, byte);
        } else {
            if (!hasDroppedSubstitutes)
                out.append("\\uc0");
            hasDroppedSubstitutes = true;
            appendControl(out, "\\u", static_cast<qint16>(character));
            out.append(' ');
        }
    }
}

} // namespace

void appendRtfText(RtfOutput& out, QStringView text)
{
    appendEscaped(out, text, Use::Text);
}

void appendRtfMarker(RtfOutput& out, QStringView marker)
{
    appendEscaped(out, marker, Use::Marker);
}

void appendRtfName(RtfOutput& out, QStringView name)
{
    appendEscaped(out, name, Use::Name);
}

void appendRtfFileName(RtfOutput& out, QStringView name)
{
    const QByteArray bytes = name.toUtf8();
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        if (byte == '\\' || byte == '{' || byte == '}')
            out.append('\\').append(byte);
        else if (value < 0x20 || value >= 0x7F)
            appendHexEscape(out, value);
        else
            out.append(byte);
    }
}

void appendRtfUrl(RtfOutput& out, QStringView url)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    constexpr qsizetype longestEscape = 3;
    const QByteArray bytes = url.toUtf8();
    char* const start = out.extend(bytes.size() * longestEscape);
    char* target = start;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        const bool mustEscape = value <= 0x20 || value >= 0x7F || byte == '{' || byte == '}' ||
                                byte == '\\' || byte == '"';
        if (mustEscape) {
            *target++ = '%';
            *target++ = digits[value >> 4];
            *target++ = digits[value & 15];
        } else {
            *target++ = byte;
        }
    }
    out.chop(bytes.size() * longestEscape - (target - start));
}

} // namespace platform
