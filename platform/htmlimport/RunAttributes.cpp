// SPDX-License-Identifier: MIT
#include "platform/htmlimport/RunAttributes.h"

namespace platform::html {

namespace {

// What is forgotten is only made again.
constexpr std::size_t mostAttributes = 4096;
constexpr std::size_t rememberedParagraphs = 8;

} // namespace

std::size_t RunAttributes::KeyHash::operator()(const Key& key) const
{
    const std::size_t text = std::hash<const void*>()(key.text);
    const std::size_t paragraph = std::hash<const void*>()(key.paragraph);
    return text * 31 + paragraph * 2 + static_cast<std::size_t>(key.form);
}

RunAttributes::ParagraphStylePointer RunAttributes::paragraphStyle(const BlockStylePointer& block,
                                                                   const ParagraphTraits& traits)
{
    for (const KnownParagraph& known : m_paragraphs) {
        if (known.block == block && known.traits == traits)
            return known.style;
    }
    auto style = std::make_shared<const ParagraphStyle>(paragraphStyleFor(*block, traits));
    // Sibling blocks with the same style attribute have blocks of their own, but no style of their
    // own.
    for (const KnownParagraph& known : m_paragraphs) {
        if (*known.style == *style) {
            style = known.style;
            break;
        }
    }
    KnownParagraph added{block, traits, style};
    if (m_paragraphs.size() < rememberedParagraphs) {
        m_paragraphs.push_back(std::move(added));
    } else {
        m_paragraphs[m_nextParagraph] = std::move(added);
        m_nextParagraph = (m_nextParagraph + 1) % rememberedParagraphs;
    }
    return style;
}

RunAttributes::Pointer RunAttributes::lookUp(const TextStylePointer& text,
                                             const ParagraphStylePointer& paragraph, Form form)
{
    const Key key{text.get(), paragraph.get(), form};
    const auto found = m_attributes.find(key);
    if (found != m_attributes.end())
        return found->second.attributes;
    auto attributes = std::make_shared<TextAttributes>(form == Form::Full ? text->attributes
                                                                          : plainAttributes(*text));
    attributes->paragraphStyle = paragraph;
    if (m_attributes.size() >= mostAttributes)
        m_attributes.clear();
    return m_attributes.emplace(key, Entry{text, std::move(attributes)}).first->second.attributes;
}

RunAttributes::Pointer RunAttributes::of(const TextStylePointer& text,
                                         const ParagraphStylePointer& paragraph)
{
    return lookUp(text, paragraph, Form::Full);
}

RunAttributes::Pointer RunAttributes::plain(const TextStylePointer& text,
                                            const ParagraphStylePointer& paragraph)
{
    return lookUp(text, paragraph, Form::Plain);
}

} // namespace platform::html
