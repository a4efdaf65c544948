// SPDX-License-Identifier: MIT
#include "platform/htmlimport/ElementStyles.h"

#include "platform/htmlimport/CssTokenizer.h"
#include "platform/htmlimport/ElementDefaults.h"

namespace platform::html {

namespace {

constexpr std::size_t longestCachedStyle = 2048;
constexpr std::size_t mostCachedStyles = 1000;

bool isStyle(const xmlAttr* attribute)
{
    return css::equalsFolded(reinterpret_cast<const char*>(attribute->name), "style");
}

} // namespace

const StyleDeclarations& ElementStyles::parsed(std::string_view style)
{
    if (style.size() > longestCachedStyle) {
        m_uncached = parseStyle(style);
        return m_uncached;
    }
    m_key.assign(style);
    const auto found = m_parsed.find(m_key);
    if (found != m_parsed.end())
        return found->second;
    if (m_parsed.size() >= mostCachedStyles)
        m_parsed.clear();
    return m_parsed.emplace(m_key, parseStyle(style)).first->second;
}

ElementStyles::Result ElementStyles::of(const xmlNode* element, Tag tag)
{
    const StyleDeclarations& defaults = elementDefaults(tag);
    if (!element->properties)
        return {defaults};
    m_declared = defaults;
    const xmlAttr* style = nullptr;
    for (const xmlAttr* attribute = element->properties; attribute; attribute = attribute->next) {
        if (isStyle(attribute))
            style = attribute;
        else
            applyPresentationalAttribute(reinterpret_cast<const char*>(attribute->name),
                                         valueOf(attribute), tag, m_declared);
    }
    bool hasOwnTopMargin = false;
    if (style) {
        const StyleDeclarations& own = parsed(valueOf(style));
        m_declared.mergeOver(own);
        hasOwnTopMargin = own.margin[static_cast<std::size_t>(TextEdge::Top)].has_value();
    }
    return {m_declared, true, hasOwnTopMargin};
}

} // namespace platform::html
