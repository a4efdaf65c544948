// SPDX-License-Identifier: MIT
#include "exports/ScannedTag.h"

#include "exports/XmlBytes.h"

#include <algorithm>

namespace {

// More than any tag of such a file has, and few enough to compare each with every other.
constexpr std::size_t mostAttributes = 32;

} // namespace

bool ScannedTag::read()
{
    if (current() != '<')
        return false;
    ++m_position;
    m_name = readName();
    if (m_name.empty())
        return false;
    while (readWhiteSpace() && xmlbytes::startsName(current())) {
        if (!readAttribute())
            return false;
    }
    m_isEmpty = current() == '/';
    if (m_isEmpty)
        ++m_position;
    if (current() != '>')
        return false;
    ++m_position;
    return true;
}

std::string_view ScannedTag::readName()
{
    const std::size_t start = m_position;
    if (xmlbytes::startsName(current())) {
        while (xmlbytes::continuesName(current()))
            ++m_position;
    }
    return m_text.substr(start, m_position - start);
}

bool ScannedTag::readWhiteSpace()
{
    const std::size_t start = m_position;
    while (xmlbytes::isWhiteSpace(current()))
        ++m_position;
    return m_position > start;
}

bool ScannedTag::readAttribute()
{
    Attribute attribute;
    attribute.name = readName();
    readWhiteSpace();
    if (current() != '=')
        return false;
    ++m_position;
    readWhiteSpace();
    if (!readValue(&attribute.value) || m_attributes.size() >= mostAttributes ||
        std::any_of(m_attributes.begin(), m_attributes.end(),
                    [&](const Attribute& other) { return other.name == attribute.name; }))
        return false;
    m_attributes.push_back(attribute);
    return true;
}

bool ScannedTag::readValue(std::string_view* value)
{
    const char quote = current();
    if (quote != '"' && quote != '\'')
        return false;
    const std::size_t start = ++m_position;
    while (m_position < m_text.size() && current() != quote) {
        const char byte = current();
        const auto code = static_cast<unsigned char>(byte);
        qsizetype length = 1;
        if (byte == '<' || (code < 0x20 && !xmlbytes::isWhiteSpace(byte)))
            return false;
        if (byte == '&')
            length = xmlbytes::lengthOfReference(m_text.substr(m_position));
        else if (code >= 0x80)
            length = xmlbytes::lengthOfCharacter(m_text.substr(m_position));
        if (length == 0)
            return false;
        m_position += static_cast<std::size_t>(length);
    }
    if (current() != quote)
        return false;
    *value = m_text.substr(start, m_position - start);
    ++m_position;
    return true;
}

QString ScannedTag::attribute(std::string_view name) const
{
    for (const Attribute& attribute : m_attributes) {
        if (attribute.name != name)
            continue;
        return QString::fromUtf8(attribute.value.data(),
                                 static_cast<qsizetype>(attribute.value.size()))
            .replace(QLatin1String("&lt;"), QLatin1String("<"))
            .replace(QLatin1String("&gt;"), QLatin1String(">"))
            .replace(QLatin1String("&quot;"), QLatin1String("\""))
            .replace(QLatin1String("&apos;"), QLatin1String("'"))
            .replace(QLatin1String("&amp;"), QLatin1String("&"));
    }
    return {};
}
