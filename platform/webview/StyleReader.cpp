// SPDX-License-Identifier: MIT
#include "platform/webview/StyleReader.h"

#include <QString>

namespace platform {
namespace {

bool isSpace(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\f' || byte == '\r';
}

bool isLineBreak(char byte)
{
    return byte == '\n' || byte == '\r' || byte == '\f';
}

int hexDigit(char byte)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const char lower = char(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

void StyleReader::skipSpace()
{
    while (isSpace(peek()))
        ++m_position;
}

void StyleReader::skipSpaceAndComments()
{
    while (!atEnd()) {
        if (isSpace(peek())) {
            ++m_position;
        } else if (atComment()) {
            const qsizetype end = m_text.indexOf("*/", m_position + 2);
            m_position = end < 0 ? m_text.size() : end + 2;
        } else {
            return;
        }
    }
}

bool StyleReader::atName() const
{
    const char byte = peek();
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9')
           || byte == '-' || byte == '_' || byte == '\\' || static_cast<uchar>(byte) >= 0x80;
}

QByteArray StyleReader::readName()
{
    QByteArray name;
    while (atName()) {
        if (peek() == '\\')
            readEscape(name);
        else
            name += m_text[m_position++];
    }
    return name;
}

QByteArray StyleReader::readString()
{
    const char quote = peek();
    ++m_position;
    QByteArray value;
    while (!atEnd()) {
        const char byte = peek();
        if (byte == '\\') {
            readEscape(value);
            continue;
        }
        if (isLineBreak(byte))
            break;
        ++m_position;
        if (byte == quote)
            break;
        value += byte;
    }
    return value;
}

QByteArray StyleReader::readArgument()
{
    ++m_position;
    skipSpace();
    QByteArray value;
    if (peek() == '"' || peek() == '\'') {
        value = readString();
        const qsizetype end = m_text.indexOf(')', m_position);
        m_position = end < 0 ? m_text.size() : end;
    } else {
        while (!atEnd() && peek() != ')') {
            if (peek() == '\\')
                readEscape(value);
            else
                value += m_text[m_position++];
        }
        value = value.trimmed();
    }
    if (!atEnd())
        ++m_position;
    return value;
}

QByteArray StyleReader::readPrelude()
{
    QByteArray prelude;
    while (!atEnd()) {
        const char byte = peek();
        if (byte == '{' || byte == '}')
            break;
        if (byte == ';') {
            ++m_position;
            break;
        }
        if (atComment()) {
            skipSpaceAndComments();
            prelude += ' ';
        } else if (byte == '"' || byte == '\'') {
            prelude += readString();
        } else {
            prelude += byte;
            ++m_position;
        }
    }
    return prelude;
}

// From the backslash.
void StyleReader::readEscape(QByteArray& result)
{
    ++m_position;
    char32_t value = 0;
    int digits = 0;
    for (; digits < 6 && hexDigit(peek()) >= 0; ++digits, ++m_position)
        value = value * 16 + char32_t(hexDigit(peek()));
    if (digits > 0) {
        if (value == 0 || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
            value = 0xFFFD;
        result += QStringView(QChar::fromUcs4(value)).toUtf8();
        if (isSpace(peek()))
            ++m_position;
    } else if (!atEnd()) {
        // An escaped line break continues a string and stands for nothing.
        if (peek() == '\r' && peek(1) == '\n')
            ++m_position;
        else if (!isLineBreak(peek()))
            result += peek();
        ++m_position;
    }
}

} // namespace platform
