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

bool hasBlocks(const xmlNode* element)
{
    for (const xmlNode* child = element->children; child; child = child->next) {
        if (child->type == XML_ELEMENT_NODE &&
            elementDefaults(tagOf(child)).display == Display::Block)
            return true;
    }
    return false;
}

bool isPage(Tag tag)
{
    return tag == Tag::Html || tag == Tag::Body || tag == Tag::EnNote;
}

// Text on such a colour is light, and would be lost on white paper.
bool isDark(const Color& color)
{
    const double light = 0.299 * color.red + 0.587 * color.green + 0.114 * color.blue;
    return color.alpha * light + (1 - color.alpha) < 0.5;
}

// Whether the colour lies behind a part of the page and not behind a single paragraph's text. The
// page itself is one only where its text could not be read without it.
bool isColoredPart(const xmlNode* element, Tag tag, const StyleDeclarations& declared)
{
    const auto& background = declared.background;
    if (!background || background->isCurrentColor || background->isTransparent() ||
        background->color == Color{1, 1, 1, 1} || declared.display != Display::Block ||
        isTablePart(tag) || isList(tag) || tag == Tag::Li)
        return false;
    return isPage(tag) ? isDark(background->color) : hasBlocks(element);
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
    m_declared.isColoredPart = isColoredPart(element, tag, m_declared);
    return {m_declared, true, hasOwnTopMargin};
}

} // namespace platform::html
