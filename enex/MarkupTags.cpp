// SPDX-License-Identifier: MIT
#include "enex/MarkupTags.h"

namespace {

bool startsName(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' ||
           byte == ':' || static_cast<unsigned char>(byte) >= 0x80;
}

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
}

bool endsName(char byte)
{
    return isBlank(byte) || byte == '/' || byte == '>' || byte == '=';
}

} // namespace

std::optional<QByteArrayView> MarkupTags::Tag::attribute(QByteArrayView wanted) const
{
    qsizetype position = 0;
    const auto passBlanks = [&] {
        while (position < attributes.size() && isBlank(attributes[position]))
            ++position;
    };
    while (position < attributes.size()) {
        passBlanks();
        const qsizetype nameStart = position;
        while (position < attributes.size() && !endsName(attributes[position]))
            ++position;
        const QByteArrayView found = attributes.sliced(nameStart, position - nameStart);
        passBlanks();
        if (position == attributes.size() || attributes[position] != '=') {
            // An attribute without a value, or a sign that belongs to none.
            if (found.isEmpty() && position < attributes.size())
                ++position;
            continue;
        }
        ++position;
        passBlanks();
        const char quote = position < attributes.size() ? attributes[position] : 0;
        const bool isQuoted = quote == '"' || quote == '\'';
        const qsizetype valueStart = position + (isQuoted ? 1 : 0);
        position = valueStart;
        while (position < attributes.size() &&
               (isQuoted ? attributes[position] != quote : !isBlank(attributes[position])))
            ++position;
        if (found == wanted)
            return attributes.sliced(valueStart, position - valueStart);
        position = std::min(position + (isQuoted ? 1 : 0), attributes.size());
    }
    return std::nullopt;
}

MarkupTags::MarkupTags(QByteArrayView markup)
    : m_markup(markup)
{
}

std::optional<MarkupTags::Tag> MarkupTags::next()
{
    while (!m_atEnd) {
        const qsizetype opening = m_markup.indexOf('<', m_position);
        if (opening < 0) {
            m_position = m_markup.size();
            break;
        }
        m_position = opening;
        if (opening + 1 == m_markup.size())
            break;
        const bool isEnd = m_markup[opening + 1] == '/';
        const qsizetype nameStart = opening + (isEnd ? 2 : 1);
        if (nameStart == m_markup.size())
            break;
        if (!startsName(m_markup[nameStart])) {
            if (!passMarkupThatIsNoTag())
                break;
            continue;
        }
        const qsizetype closing = endOfTag();
        if (closing < 0)
            break;
        if (m_markup[closing] != '>') {
            // Another tag begins in this one, which therefore is none.
            m_position = closing;
            continue;
        }
        qsizetype nameEnd = nameStart;
        while (!endsName(m_markup[nameEnd]))
            ++nameEnd;
        const bool isEmpty = !isEnd && m_markup[closing - 1] == '/';
        m_position = closing + 1;
        const qsizetype attributesEnd = std::max(nameEnd, closing - (isEmpty ? 1 : 0));
        return Tag{isEnd     ? Tag::Kind::End
                   : isEmpty ? Tag::Kind::Empty
                             : Tag::Kind::Start,
                   m_markup.sliced(nameStart, nameEnd - nameStart), opening, m_position,
                   m_markup.sliced(nameEnd, attributesEnd - nameEnd)};
    }
    m_atEnd = true;
    return std::nullopt;
}

bool MarkupTags::holdNothing(QByteArrayView markup)
{
    MarkupTags tags(markup);
    for (;;) {
        while (tags.m_position < markup.size() && isBlank(markup[tags.m_position]))
            ++tags.m_position;
        const QByteArrayView rest = markup.sliced(tags.m_position);
        if (rest.isEmpty())
            return true;
        const bool mayPass =
            rest.startsWith("<?") || (rest.startsWith("<!") && !rest.startsWith("<![CDATA["));
        if (!mayPass || !tags.passMarkupThatIsNoTag())
            return false;
    }
}

bool MarkupTags::passMarkupThatIsNoTag()
{
    const QByteArrayView rest = m_markup.sliced(m_position);
    if (rest.startsWith("<!--"))
        return passUntil("-->", 4);
    if (rest.startsWith("<![CDATA["))
        return passUntil("]]>", 9);
    if (rest.startsWith("<?"))
        return passUntil("?>", 2);
    if (rest.startsWith("<!"))
        return passUntil(">", 2);
    // A sign in the text.
    ++m_position;
    return true;
}

bool MarkupTags::passUntil(QByteArrayView closer, qsizetype from)
{
    const qsizetype found = m_markup.indexOf(closer, m_position + from);
    if (found < 0)
        return false;
    m_position = found + closer.size();
    return true;
}

// Where the tag at the position ends: at its ">", or at a "<", which no tag holds, not even in
// quotes.
qsizetype MarkupTags::endOfTag() const
{
    char quote = 0;
    for (qsizetype position = m_position + 1; position < m_markup.size(); ++position) {
        const char byte = m_markup[position];
        if (byte == '<' || (byte == '>' && !quote))
            return position;
        if (quote)
            quote = byte == quote ? char(0) : quote;
        else if (byte == '"' || byte == '\'')
            quote = byte;
    }
    return -1;
}
