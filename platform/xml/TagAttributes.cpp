// SPDX-License-Identifier: MIT
#include "platform/xml/TagAttributes.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace platform {

namespace {

// What of a tag a byte can stand in.
enum class Part {
    ElementName,
    Between,
    Name,
    AfterName,
    AfterEquals,
    Unquoted,
    Bogus,
    DoubleQuoted,
    SingleQuoted,
    AfterValue,
    Outside
};
constexpr std::size_t partsOfTag = std::size_t(Part::Outside);

struct Step {
    Part part;
    // The byte begins an attribute.
    bool beginsAttribute = false;
};

bool isBlank(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool isAsciiLetter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool startsXmlName(char byte)
{
    return isAsciiLetter(byte) || byte == '_' || byte == ':' ||
           static_cast<unsigned char>(byte) >= 0x80;
}

bool startsHtmlName(char byte)
{
    return isAsciiLetter(byte) || byte == '_' || byte == ':' || byte == '.';
}

bool continuesHtmlName(char byte)
{
    return startsHtmlName(byte) || byte == '-' || (byte >= '0' && byte <= '9');
}

// A tag that is not well-formed has no further attributes: the parser leaves it.
Step stepInXml(Part part, char byte)
{
    switch (part) {
    case Part::ElementName:
    case Part::AfterValue:
        if (isBlank(byte))
            return {Part::Between};
        return {part == Part::ElementName && byte != '>' && byte != '/' && byte != '<'
                    ? part
                    : Part::Outside};
    case Part::Between:
        if (isBlank(byte))
            return {part};
        return startsXmlName(byte) ? Step{Part::Name, true} : Step{Part::Outside};
    case Part::Name:
    case Part::AfterName:
        if (byte == '=')
            return {Part::AfterEquals};
        if (isBlank(byte))
            return {Part::AfterName};
        return {part == Part::Name && byte != '>' && byte != '/' && byte != '<' ? part
                                                                                : Part::Outside};
    case Part::AfterEquals:
        if (byte == '"' || byte == '\'')
            return {byte == '"' ? Part::DoubleQuoted : Part::SingleQuoted};
        return {isBlank(byte) ? part : Part::Outside};
    case Part::DoubleQuoted:
    case Part::SingleQuoted:
        if (byte == '<')
            return {Part::Outside};
        return {byte == (part == Part::DoubleQuoted ? '"' : '\'') ? Part::AfterValue : part};
    case Part::Unquoted:
    case Part::Bogus:
    case Part::Outside:
        break;
    }
    return {Part::Outside};
}

Step attributeInHtml(char byte)
{
    if (isBlank(byte))
        return {Part::Between};
    // What is no name is passed over up to the next blank.
    return {startsHtmlName(byte) ? Part::Name : Part::Bogus, true};
}

Step stepInHtml(Part part, char byte)
{
    const bool isQuoted = part == Part::DoubleQuoted || part == Part::SingleQuoted;
    if (byte == '>' && !isQuoted)
        return {Part::Outside};
    switch (part) {
    case Part::ElementName:
        return continuesHtmlName(byte) ? Step{part} : attributeInHtml(byte);
    case Part::Between:
        return attributeInHtml(byte);
    case Part::Name:
    case Part::AfterName:
        if (byte == '=')
            return {Part::AfterEquals};
        if (isBlank(byte))
            return {Part::AfterName};
        return part == Part::Name && continuesHtmlName(byte) ? Step{part} : attributeInHtml(byte);
    case Part::AfterEquals:
        if (byte == '"' || byte == '\'')
            return {byte == '"' ? Part::DoubleQuoted : Part::SingleQuoted};
        return {isBlank(byte) ? part : Part::Unquoted};
    case Part::Unquoted:
    case Part::Bogus:
        return {isBlank(byte) ? Part::Between : part};
    case Part::DoubleQuoted:
    case Part::SingleQuoted:
        return {byte == (part == Part::DoubleQuoted ? '"' : '\'') ? Part::Between : part};
    case Part::AfterValue:
    case Part::Outside:
        break;
    }
    return {Part::Outside};
}

// All the tags that a byte may stand in; of those that are in the same part, the one with the most
// attributes.
class PossibleTags {
public:
    explicit PossibleTags(TagGrammar grammar)
        : m_grammar(grammar)
    {
        m_attributes.fill(noTag);
    }

    void read(char byte, char before)
    {
        std::array<int, partsOfTag + 1> next;
        next.fill(noTag);
        for (std::size_t part = 0; part < partsOfTag; ++part) {
            if (m_attributes[part] == noTag)
                continue;
            const Step step = m_grammar == TagGrammar::Xml ? stepInXml(Part(part), byte)
                                                           : stepInHtml(Part(part), byte);
            int& most = next[std::size_t(step.part)];
            most = std::max(most, m_attributes[part] + (step.beginsAttribute ? 1 : 0));
        }
        const bool startsTag =
            before == '<' &&
            (m_grammar == TagGrammar::Xml ? startsXmlName(byte) : isAsciiLetter(byte));
        int& begun = next[std::size_t(Part::ElementName)];
        if (startsTag)
            begun = std::max(begun, 0);
        std::copy_n(next.begin(), partsOfTag, m_attributes.begin());
    }

    [[nodiscard]] int mostAttributes() const
    {
        return *std::max_element(m_attributes.begin(), m_attributes.end());
    }
    [[nodiscard]] bool isOutside() const { return mostAttributes() == noTag; }

private:
    static constexpr int noTag = -1;

    TagGrammar m_grammar;
    std::array<int, partsOfTag> m_attributes;
};

} // namespace

bool mayHaveMoreAttributes(QByteArrayView markup, TagGrammar grammar, int limit)
{
    PossibleTags tags(grammar);
    const char* const end = markup.end();
    char before = 0;
    for (const char* next = markup.begin(); next != end;) {
        if (before != '<' && tags.isOutside()) {
            const void* const found = std::memchr(next, '<', static_cast<std::size_t>(end - next));
            if (!found)
                return false;
            next = static_cast<const char*>(found);
        }
        tags.read(*next, before);
        if (tags.mostAttributes() > limit)
            return true;
        before = *next++;
    }
    return false;
}

} // namespace platform
