// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfTokenizer.h"

#include <limits>

namespace platform {

namespace {

bool isLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool endsText(char character)
{
    return character == '\\' || character == '{' || character == '}' || character == '\n' ||
           character == '\r' || character == '\0';
}

// Between tokens these mean nothing.
bool isPassedOver(char character)
{
    return character == '\n' || character == '\r' || character == '\0';
}

} // namespace

int rtfHexDigit(char character)
{
    if (isDigit(character))
        return character - '0';
    if (character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    if (character >= 'A' && character <= 'F')
        return character - 'A' + 10;
    return -1;
}

RtfToken RtfTokenizer::next()
{
    while (m_position != m_end && isPassedOver(*m_position))
        ++m_position;
    RtfToken token;
    if (m_position == m_end)
        return token;
    switch (*m_position) {
    case '{':
        ++m_position;
        token.kind = RtfToken::Kind::GroupOpen;
        return token;
    case '}':
        ++m_position;
        token.kind = RtfToken::Kind::GroupClose;
        return token;
    case '\\':
        ++m_position;
        return escape();
    default:
        break;
    }
    const char* const start = m_position;
    m_position = std::find_if(m_position, m_end, endsText);
    token.kind = RtfToken::Kind::Text;
    token.bytes = QByteArrayView(start, m_position - start);
    return token;
}

RtfToken RtfTokenizer::escape()
{
    RtfToken token;
    if (m_position == m_end)
        return token;
    if (isLetter(*m_position))
        return word();
    token.kind = RtfToken::Kind::Symbol;
    token.symbol = *m_position++;
    if (token.symbol == '\r' && m_position != m_end && *m_position == '\n')
        ++m_position;
    if (token.symbol != '\'')
        return token;
    // One digit is enough: some writers leave out the first.
    int value = -1;
    for (int digits = 0; digits < 2 && m_position != m_end; ++digits) {
        const int digit = rtfHexDigit(*m_position);
        if (digit < 0)
            break;
        value = std::max(value, 0) * 16 + digit;
        ++m_position;
    }
    if (value >= 0) {
        token.kind = RtfToken::Kind::Byte;
        token.symbol = static_cast<char>(value);
    }
    return token;
}

RtfToken RtfTokenizer::word()
{
    RtfToken token;
    token.kind = RtfToken::Kind::Word;
    const char* const start = m_position;
    m_position = std::find_if_not(m_position, m_end, isLetter);
    token.bytes = QByteArrayView(start, m_position - start);

    const bool isNegative = m_position != m_end && *m_position == '-' && m_position + 1 != m_end &&
                            isDigit(m_position[1]);
    if (isNegative)
        ++m_position;
    qint64 number = 0;
    constexpr qint64 largest = std::numeric_limits<qint32>::max();
    for (; m_position != m_end && isDigit(*m_position); ++m_position) {
        token.hasNumber = true;
        number = std::min(number * 10 + (*m_position - '0'), largest);
    }
    token.number = static_cast<qint32>(isNegative ? -number : number);
    if (m_position != m_end && *m_position == ' ')
        ++m_position;
    if (token.bytes == "bin") {
        const qint64 count = std::clamp<qint64>(token.number, 0, m_end - m_position);
        token.kind = RtfToken::Kind::Binary;
        token.bytes = QByteArrayView(m_position, count);
        m_position += count;
    }
    return token;
}

} // namespace platform
