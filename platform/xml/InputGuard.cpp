// SPDX-License-Identifier: MIT
#include "platform/xml/InputGuard.h"

#include <QByteArrayView>

#include <algorithm>
#include <array>
#include <cstring>

namespace platform {

namespace {

constexpr std::string_view split = "]]><![CDATA[";
constexpr std::string_view cDataOpening = "![CDATA[";
constexpr std::string_view commentOpening = "!--";

bool startsName(unsigned char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           character == '_' || character == ':' || character >= 0x80;
}

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

struct InputGuard::Cursor {
    const char* input;
    const char* inputEnd;
    char* output;
    char* outputEnd;

    [[nodiscard]] bool isDone() const { return input == inputEnd || output == outputEnd; }

    [[nodiscard]] qsizetype room() const { return std::min(inputEnd - input, outputEnd - output); }

    char passByte() { return *output++ = *input++; }

    void passRun(qsizetype length)
    {
        std::memcpy(output, input, static_cast<std::size_t>(length));
        input += length;
        output += length;
    }

    // Passes what precedes the next such byte, at most limit bytes; returns how many there were.
    qsizetype passBefore(char byte, qsizetype limit)
    {
        qsizetype length = std::min(room(), limit);
        if (const void* found = std::memchr(input, byte, static_cast<std::size_t>(length)))
            length = static_cast<const char*>(found) - input;
        passRun(length);
        return length;
    }
};

InputGuard::Passed InputGuard::pass(const char* input, qsizetype inputLength, char* output,
                                    qsizetype outputLength, LongCData longCData)
{
    Cursor cursor{input, input + inputLength, output, output + outputLength};
    while (!cursor.isDone() && !foundTooManyAttributes()) {
        switch (m_state) {
        case State::Text:
            passText(cursor);
            break;
        case State::Markup:
            passMarkup(cursor);
            break;
        case State::Declaration:
            passDeclaration(cursor);
            break;
        case State::Tag:
            passTag(cursor);
            break;
        case State::CData:
            passCData(cursor, longCData);
            break;
        case State::Comment:
            passUntil(cursor, '-', 2);
            break;
        case State::Instruction:
            passUntil(cursor, '?', 1);
            break;
        }
    }
    return {cursor.input - input, cursor.output - output};
}

void InputGuard::watchUtf16(const char* input, qsizetype inputLength, ByteOrder order)
{
    // Stands for any character that means nothing to markup.
    constexpr char other = '\x80';
    std::array<char, 4096> ascii;
    std::array<char, ascii.size()> unused;
    std::size_t count = 0;
    const auto look = [&] {
        static_cast<void>(pass(ascii.data(), qsizetype(count), unused.data(),
                               qsizetype(unused.size()), LongCData::LeaveWhole));
        count = 0;
    };
    for (const char byte : QByteArrayView(input, inputLength)) {
        if (!m_halfUnit) {
            m_halfUnit = byte;
            continue;
        }
        const char high = order == ByteOrder::BigEndian ? *m_halfUnit : byte;
        const char low = order == ByteOrder::BigEndian ? byte : *m_halfUnit;
        m_halfUnit.reset();
        ascii[count++] = high == 0 && static_cast<unsigned char>(low) < 0x80 ? low : other;
        if (count == ascii.size())
            look();
    }
    look();
}

void InputGuard::passText(Cursor& cursor)
{
    cursor.passBefore('<', cursor.room());
    if (cursor.isDone())
        return;
    cursor.passByte();
    m_state = State::Markup;
    m_matched = 0;
}

void InputGuard::passMarkup(Cursor& cursor)
{
    const char byte = *cursor.input;
    if (m_matched == 1) {
        if (byte != '-' && byte != '[') {
            m_state = State::Declaration;
            m_quote = 0;
            return;
        }
        m_opening = byte == '-' ? commentOpening : cDataOpening;
    }
    if (byte == (m_matched == 0 ? '!' : m_opening[m_matched])) {
        cursor.passByte();
        ++m_matched;
        if (m_matched > 1 && m_matched == m_opening.size()) {
            m_state = m_opening == commentOpening ? State::Comment : State::CData;
            m_matched = 0;
            m_cDataLength = 0;
        }
        return;
    }
    if (m_matched > 0) {
        m_state = State::Text;
        return;
    }
    m_attributes = 0;
    m_quote = 0;
    if (byte == '?') {
        cursor.passByte();
        m_state = State::Instruction;
    } else {
        m_state = startsName(static_cast<unsigned char>(byte)) ? State::Tag : State::Text;
    }
}

// A declaration's literals may hold what looks like markup. The subset in a DOCTYPE's brackets is
// read like text and has declarations of its own.
void InputGuard::passDeclaration(Cursor& cursor)
{
    while (!cursor.isDone()) {
        if (m_quote) {
            cursor.passBefore(m_quote, cursor.room());
            if (cursor.isDone())
                return;
            cursor.passByte();
            m_quote = 0;
            continue;
        }
        const char byte = *cursor.input;
        if (byte == '<') {
            m_state = State::Text;
            return;
        }
        cursor.passByte();
        if (byte == '"' || byte == '\'') {
            m_quote = byte;
        } else if (byte == '>' || byte == '[') {
            m_state = State::Text;
            return;
        }
    }
}

void InputGuard::passTag(Cursor& cursor)
{
    while (!cursor.isDone()) {
        const char byte = *cursor.input;
        if (byte == '<') {
            // No tag holds one, not even in quotes: the document is not well-formed.
            m_state = State::Text;
            return;
        }
        cursor.passByte();
        if (m_quote) {
            if (byte == m_quote) {
                m_quote = 0;
                if (++m_attributes > maximumAttributes)
                    return;
            }
        } else if (byte == '"' || byte == '\'') {
            m_quote = byte;
        } else if (byte == '>') {
            m_state = State::Text;
            return;
        }
    }
}

void InputGuard::passCData(Cursor& cursor, LongCData longCData)
{
    if (!m_insertion.empty()) {
        const auto length = std::min(m_insertion.size(),
                                     static_cast<std::size_t>(cursor.outputEnd - cursor.output));
        std::memcpy(cursor.output, m_insertion.data(), length);
        cursor.output += length;
        m_insertion.remove_prefix(length);
        return;
    }
    const bool isLong = longCData == LongCData::Split && m_cDataLength >= m_maximumCData;
    const char next = *cursor.input;
    // Not within a character, a line break of two bytes, or what may be the section's end.
    if (isLong && m_matched == 0 && next != ']' && m_last != '\r' && !continuesCharacter(next)) {
        m_insertion = split;
        m_cDataLength = 0;
        return;
    }
    if (next == ']' || m_matched > 0 || isLong) {
        m_last = cursor.passByte();
        ++m_cDataLength;
        if (next == '>' && m_matched == 2)
            m_state = State::Text;
        m_matched = next == ']' ? std::min<std::size_t>(m_matched + 1, 2) : 0;
        return;
    }
    const qsizetype limit =
        longCData == LongCData::Split ? m_maximumCData - m_cDataLength : cursor.room();
    m_cDataLength += cursor.passBefore(']', limit);
    m_last = cursor.output[-1];
}

void InputGuard::passUntil(Cursor& cursor, char repeated, std::size_t times)
{
    if (m_matched == 0) {
        cursor.passBefore(repeated, cursor.room());
        if (cursor.isDone())
            return;
    }
    const char byte = cursor.passByte();
    if (byte == '>' && m_matched >= times) {
        m_state = State::Text;
        return;
    }
    m_matched = byte == repeated ? std::min(m_matched + 1, times) : 0;
}

} // namespace platform
