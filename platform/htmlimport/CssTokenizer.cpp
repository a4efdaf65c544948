// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>
#include <cstdint>

namespace platform::css {

namespace {

constexpr std::size_t mostParts = 64;

bool isHexadecimal(char character)
{
    return (character >= '0' && character <= '9') ||
           (folded(character) >= 'a' && folded(character) <= 'f');
}

// The position after the quoted string that begins at start, or the text's end when it never ends.
std::size_t endOfString(std::string_view text, std::size_t start)
{
    const char quote = text[start];
    for (std::size_t position = start + 1; position < text.size(); ++position) {
        if (text[position] == '\\')
            ++position;
        else if (text[position] == quote)
            return position + 1;
    }
    return text.size();
}

// Comments become blanks, outside of strings only.
std::string withoutComments(std::string_view style)
{
    std::string text;
    text.reserve(style.size());
    for (std::size_t position = 0; position < style.size();) {
        if (style[position] == '"' || style[position] == '\'') {
            const std::size_t end = endOfString(style, position);
            text += style.substr(position, end - position);
            position = end;
        } else if (style.substr(position, 2) == "/*") {
            const std::size_t end = style.find("*/", position + 2);
            text += ' ';
            position = end == std::string_view::npos ? style.size() : end + 2;
        } else {
            text += style[position++];
        }
    }
    return text;
}

struct DeclarationEnd {
    std::size_t position = 0; // of the semicolon, or the text's end
    bool isClosed = true;     // no quote or bracket was left open
};

DeclarationEnd endOfDeclaration(std::string_view text, std::size_t start)
{
    int depth = 0;
    for (std::size_t position = start; position < text.size(); ++position) {
        switch (text[position]) {
        case '\\':
            ++position;
            break;
        case '"':
        case '\'': {
            const std::size_t end = endOfString(text, position);
            if (end == text.size() && (end == position + 1 || text[end - 1] != text[position]))
                return {end, false};
            position = end - 1;
            break;
        }
        case '(':
            ++depth;
            break;
        case ')':
            depth = std::max(depth - 1, 0);
            break;
        case ';':
            if (depth == 0)
                return {position, true};
            break;
        default:
            break;
        }
    }
    return {text.size(), depth == 0};
}

void appendUtf8(std::string& text, std::uint32_t code)
{
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0 | code >> 12);
        text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | code >> 18);
        text += static_cast<char>(0x80 | (code >> 12 & 0x3F));
        text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    }
}

} // namespace

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r' ||
           character == '\f';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

char folded(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}

bool equalsFolded(std::string_view text, std::string_view lowerCase)
{
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](char one, char other) { return folded(one) == other; });
}

Declarations::Declarations(std::string_view style)
    : m_text(style.find("/*") == std::string_view::npos ? std::string(style)
                                                        : withoutComments(style))
{
    const std::string_view text(m_text);
    // A quote or bracket that is never closed would swallow everything after it. From there on the
    // plain semicolons count, so that one slip costs one declaration.
    bool everythingCloses = true;
    for (std::size_t start = 0; start < text.size();) {
        DeclarationEnd end{text.size(), false};
        if (everythingCloses)
            end = endOfDeclaration(text, start);
        everythingCloses = end.isClosed;
        if (!everythingCloses)
            end.position = std::min(text.find(';', start), text.size());
        read(text.substr(start, end.position - start));
        start = end.position + 1;
    }
    std::stable_partition(m_declarations.begin(), m_declarations.end(),
                          [](const Declaration& declaration) { return !declaration.important; });
}

void Declarations::read(std::string_view declaration)
{
    const std::size_t colon = declaration.find(':');
    if (colon == std::string_view::npos)
        return;
    const std::string_view name = trimmed(declaration.substr(0, colon));
    std::string_view value = trimmed(declaration.substr(colon + 1));
    if (name.empty() || value.empty())
        return;
    if (!name.starts_with("--")) {
        char* const start = m_text.data() + (name.data() - m_text.data());
        std::transform(start, start + name.size(), start, folded);
    }
    bool important = false;
    if (const std::size_t mark = value.rfind('!'); mark != std::string_view::npos) {
        if (equalsFolded(trimmed(value.substr(mark + 1)), "important")) {
            important = true;
            value = trimmed(value.substr(0, mark));
        }
    }
    m_declarations.push_back({name, value, important});
}

std::vector<std::string_view> valueParts(std::string_view value)
{
    std::vector<std::string_view> parts;
    std::size_t position = 0;
    while (position < value.size() && parts.size() < mostParts) {
        const char character = value[position];
        if (isBlank(character)) {
            ++position;
            continue;
        }
        std::size_t end = position + 1;
        if (character == '"' || character == '\'') {
            end = endOfString(value, position);
        } else if (character != ',' && character != '/') {
            int depth = 0;
            for (end = position; end < value.size(); ++end) {
                const char next = value[end];
                if (depth == 0 &&
                    (isBlank(next) || next == ',' || next == '/' || next == '"' || next == '\''))
                    break;
                if (next == '(')
                    ++depth;
                else if (next == ')')
                    depth = std::max(depth - 1, 0);
            }
        }
        parts.push_back(value.substr(position, end - position));
        position = end;
    }
    return parts;
}

std::string unquoted(std::string_view part)
{
    if (!part.empty() && (part.front() == '"' || part.front() == '\'')) {
        const char quote = part.front();
        part.remove_prefix(1);
        if (!part.empty() && part.back() == quote)
            part.remove_suffix(1);
    }
    if (part.find('\\') == std::string_view::npos)
        return std::string(part);
    std::string text;
    for (std::size_t position = 0; position < part.size(); ++position) {
        if (part[position] != '\\' || position + 1 == part.size()) {
            text += part[position];
            continue;
        }
        ++position;
        if (!isHexadecimal(part[position])) {
            text += part[position];
            continue;
        }
        std::uint32_t code = 0;
        std::size_t digits = 0;
        for (; digits < 6 && position < part.size() && isHexadecimal(part[position]);
             ++digits, ++position) {
            const char digit = folded(part[position]);
            code = code * 16 +
                   static_cast<std::uint32_t>(digit <= '9' ? digit - '0' : digit - 'a' + 10);
        }
        const bool isCharacter = code != 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
        appendUtf8(text, isCharacter ? code : 0xFFFD);
        // One blank after the digits belongs to the escape.
        if (position == part.size() || !isBlank(part[position]))
            --position;
    }
    return text;
}

Function functionIn(std::string_view part)
{
    const std::size_t open = part.find('(');
    if (open == std::string_view::npos || open == 0)
        return {};
    std::string_view arguments = part.substr(open + 1);
    if (!arguments.empty() && arguments.back() == ')')
        arguments.remove_suffix(1);
    return {part.substr(0, open), trimmed(arguments)};
}

} // namespace platform::css
