// SPDX-License-Identifier: MIT
#include "platform/htmlimport/TextFlow.h"

#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/Utf8.h"

#include <algorithm>

namespace platform::html {

namespace {

bool isAllBlank(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), css::isBlank);
}

bool isLineEnd(char character)
{
    return character == '\n' || character == '\r';
}

// The next line, its end taken off the text; CR LF is one.
std::string_view takeLine(std::string_view& text, bool& hasEnd)
{
    const auto end = std::find_if(text.begin(), text.end(), isLineEnd);
    const auto length = static_cast<std::size_t>(end - text.begin());
    const std::string_view line = text.substr(0, length);
    hasEnd = length < text.size();
    text.remove_prefix(length);
    if (hasEnd)
        text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    return line;
}

QString capitalized(QString word, bool startsWord)
{
    for (QChar& character : word) {
        if (startsWord && character.isLetterOrNumber()) {
            character = character.toUpper();
            startsWord = false;
        } else if (character.isSpace()) {
            startsWord = true;
        }
    }
    return word;
}

QString transformed(const QString& word, TextTransform transform, bool startsWord)
{
    switch (transform) {
    case TextTransform::Uppercase:
        return word.toUpper();
    case TextTransform::Lowercase:
        return word.toLower();
    case TextTransform::Capitalize:
        return capitalized(word, startsWord);
    case TextTransform::None:
        break;
    }
    return word;
}

} // namespace

void TextFlow::addText(std::string_view utf8, const TextStylePointer& style)
{
    if (style->hidden || utf8.empty())
        return;
    switch (style->whiteSpace) {
    case WhiteSpace::Normal:
        addCollapsed(utf8, style);
        break;
    case WhiteSpace::Pre:
    case WhiteSpace::PreLine:
        addPreformatted(utf8, style);
        break;
    case WhiteSpace::Code:
        addCode(utf8, style);
        break;
    }
}

void TextFlow::addVerbatim(std::string_view utf8, const TextStylePointer& style)
{
    if (style->hidden || utf8.empty())
        return;
    beforeContent(style);
    append(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())), style);
}

// A run of text without collapsible blanks.
void TextFlow::appendWord(std::string_view utf8, const TextStylePointer& style)
{
    if (style->transform == TextTransform::None) {
        appendUtf8(m_text, utf8);
        append({}, style);
        return;
    }
    QString word;
    appendUtf8(word, utf8);
    const bool startsWord = m_text.isEmpty() || !m_text.back().isLetterOrNumber();
    append(transformed(word, style->transform, startsWord), style);
}

void TextFlow::addCollapsed(std::string_view utf8, const TextStylePointer& style)
{
    std::size_t position = 0;
    while (position < utf8.size()) {
        if (css::isBlank(utf8[position])) {
            if (!m_blank && !isAtLineStart())
                m_blank = style;
            while (position < utf8.size() && css::isBlank(utf8[position]))
                ++position;
            continue;
        }
        const auto start = utf8.begin() + static_cast<std::ptrdiff_t>(position);
        const auto end = std::find_if(start, utf8.end(), css::isBlank);
        const auto length = static_cast<std::size_t>(end - start);
        beforeContent(style);
        appendWord(utf8.substr(position, length), style);
        position += length;
    }
}

// Line ends are kept; blanks are, too, unless only lines count.
void TextFlow::addPreformatted(std::string_view utf8, const TextStylePointer& style)
{
    bool hasEnd = true;
    while (!utf8.empty()) {
        const std::string_view line = takeLine(utf8, hasEnd);
        if (style->whiteSpace == WhiteSpace::PreLine) {
            addCollapsed(line, style);
        } else if (!line.empty()) {
            beforeContent(style);
            appendWord(line, style);
        }
        if (hasEnd) {
            dropBlank();
            breakLine(style);
        }
    }
}

// Blanks are kept. Line ends between lines are breaks; those beside the lines' own blocks, and
// white space that only lays the markup out, are nothing.
void TextFlow::addCode(std::string_view utf8, const TextStylePointer& style)
{
    const bool isLayout = std::any_of(utf8.begin(), utf8.end(), isLineEnd) && isAllBlank(utf8);
    if (isLayout && !m_isOpen)
        return;
    bool hasEnd = true;
    while (!utf8.empty()) {
        const std::string_view line = takeLine(utf8, hasEnd);
        if (!line.empty() && !isLayout) {
            beforeContent(style);
            appendWord(line, style);
        }
        if (hasEnd && m_isOpen)
            ++m_codeBreaks;
    }
}

} // namespace platform::html
