// SPDX-License-Identifier: MIT
#include "platform/attributedtext/AttributedString.h"

namespace platform {

namespace {

// The line ends of Unicode text, as the platform's strings know them.
bool isLineTerminator(QChar character)
{
    switch (character.unicode()) {
    case u'\n':
    case u'\r':
    case u'\x85':
    case u'\x2028':
    case u'\x2029':
        return true;
    default:
        return false;
    }
}

bool isInsideCrLf(QStringView text, qsizetype position)
{
    return position > 0 && position < text.size() && text[position - 1] == u'\r' &&
           text[position] == u'\n';
}

} // namespace

TextRange AttributedString::lineRangeFor(TextRange range) const
{
    checkRange(range);
    const QStringView text(m_string);
    qsizetype start = range.location;
    while (start > 0 && (isInsideCrLf(text, start) || !isLineTerminator(text[start - 1])))
        --start;
    // A terminator that ends the range ends the line too.
    qsizetype end = range.length > 0 ? range.end() - 1 : range.location;
    while (end < text.size() && !isLineTerminator(text[end]))
        ++end;
    if (end < text.size())
        ++end;
    if (isInsideCrLf(text, end))
        ++end;
    return {start, end - start};
}

} // namespace platform
