// SPDX-License-Identifier: MIT
#include "platform/htmlimport/ListBuilder.h"

#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>
#include <array>

namespace platform::html {

namespace {

constexpr double nestedChecklistIndent = 36;
constexpr int largestNumber = 1000000000;

std::optional<int> integerAttribute(const xmlNode* element, const char* name)
{
    const auto text = attribute(element, name);
    if (!text)
        return std::nullopt;
    const auto number = css::numberIn(css::trimmed(*text));
    return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

bool isItem(const xmlNode* node)
{
    return node->type == XML_ELEMENT_NODE && tagOf(node) == Tag::Li;
}

int countItems(const xmlNode* list)
{
    int count = 0;
    for (const xmlNode* child = list->children; child; child = child->next)
        count += isItem(child) ? 1 : 0;
    return count;
}

QString bulletFormat(std::size_t level)
{
    static const std::array<QString, 3> formats = {
        QStringLiteral("{disc}"), QStringLiteral("{circle}"), QStringLiteral("{square}")};
    return formats[std::min<std::size_t>(level, 2)];
}

bool isBullet(const TextList& list)
{
    return list.markerFormat == u"{disc}" || list.markerFormat == u"{circle}" ||
           list.markerFormat == u"{square}";
}

// The marker is drawn as the item's text is, without what only parts of it are.
TextStylePointer markerStyleFor(const TextStylePointer& text)
{
    auto style = std::make_shared<TextStyle>();
    style->attributes = plainAttributes(*text);
    return style;
}

BlockStylePointer itemBlockIn(const BlockStylePointer& block)
{
    auto inside = std::make_shared<BlockStyle>(*block);
    inside->isInItem = true;
    inside->breaksAreSoft = true;
    return inside;
}

TextFlow::Prefix markerPrefix(const TextList& list, int number, const TextStylePointer& style)
{
    TextFlow::Prefix prefix;
    prefix.style = style;
    const QString marker = list.markerForItemNumber(number);
    if (marker.isEmpty())
        return prefix;
    prefix.text = u'\t' + marker + u'\t';
    prefix.isListMarker = true;
    prefix.yieldsToBox = isBullet(list);
    return prefix;
}

TextFlow::Prefix boxPrefix(bool isChecked, const TextStylePointer& text)
{
    TextFlow::Prefix prefix;
    prefix.text = isChecked ? QStringLiteral("\u2611\uFE0E ") : QStringLiteral("\u2610 ");
    prefix.style = text;
    return prefix;
}

} // namespace

BlockStylePointer ListBuilder::blockWithList(const BlockStylePointer& block,
                                             const std::shared_ptr<const TextList>& list) const
{
    auto inside = std::make_shared<BlockStyle>(*block);
    inside->isInItem = false;
    if (inside->lists.size() < deepestListLevel)
        inside->lists.push_back(list);
    return inside;
}

BlockStylePointer ListBuilder::enterList(const xmlNode* element, Tag tag,
                                         const StyleDeclarations& declared,
                                         const BlockStylePointer& block)
{
    Level level;
    if (declared.isChecklist) {
        level.isChecklist = true;
        const bool isNested = !m_lists.empty() && m_lists.back().isChecklist;
        m_lists.push_back(std::move(level));
        auto inside = std::make_shared<BlockStyle>(*block);
        inside->isInItem = false;
        if (isNested &&
            inside->leftIndent < nestedChecklistIndent * static_cast<double>(deepestListLevel))
            inside->leftIndent += nestedChecklistIndent;
        return inside;
    }
    TextList list;
    if (tag == Tag::Ol) {
        list.markerFormat = declared.listMarkerFormat.value_or(QStringLiteral("{decimal}."));
        level.step = attribute(element, "reversed") ? -1 : 1;
        const auto start = integerAttribute(element, "start");
        list.startingItemNumber = start.value_or(level.step < 0 ? countItems(element) : 1);
    } else {
        list.markerFormat = declared.listMarkerFormat.value_or(bulletFormat(block->lists.size()));
    }
    level.nextNumber = list.startingItemNumber;
    level.list = std::make_shared<const TextList>(std::move(list));
    m_lists.push_back(level);
    return blockWithList(block, level.list);
}

ListBuilder::Item ListBuilder::strayItem(const xmlNode* element, const BlockStylePointer& block,
                                         const TextStylePointer& text)
{
    if (!m_strayList || m_strayParent != element->parent) {
        m_strayList = std::make_shared<const TextList>(TextList{bulletFormat(block->lists.size())});
        m_strayParent = element->parent;
    }
    return {markerPrefix(*m_strayList, 1, markerStyleFor(text)),
            itemBlockIn(blockWithList(block, m_strayList))};
}

ListBuilder::Item ListBuilder::numberedItem(Level& level, const xmlNode* element,
                                            const StyleDeclarations& declared,
                                            const BlockStylePointer& block)
{
    const int number = integerAttribute(element, "value").value_or(level.nextNumber);
    level.nextNumber = std::clamp(number + level.step, -largestNumber, largestNumber);
    if (!declared.listMarkerFormat || *declared.listMarkerFormat == level.list->markerFormat)
        return {markerPrefix(*level.list, number, level.markerStyle), level.itemBlock};
    // An item with a marker of its own is a list of its own at the same level.
    const auto own = std::make_shared<const TextList>(TextList{*declared.listMarkerFormat, number});
    auto inside = std::make_shared<BlockStyle>(*itemBlockIn(block));
    if (!inside->lists.empty())
        inside->lists.back() = own;
    return {markerPrefix(*own, number, level.markerStyle), std::move(inside)};
}

ListBuilder::Item ListBuilder::enterItem(const xmlNode* element, const StyleDeclarations& declared,
                                         const BlockStylePointer& block,
                                         const TextStylePointer& text)
{
    const bool isStray = m_lists.empty() || (!m_lists.back().list && !m_lists.back().isChecklist);
    if (isStray)
        return strayItem(element, block, text);
    Level& level = m_lists.back();
    if (level.outerBlock != block) {
        level.outerBlock = block;
        level.itemBlock = itemBlockIn(block);
    }
    if (level.isChecklist)
        return {boxPrefix(declared.isChecked.value_or(false), text), level.itemBlock};
    if (level.itemText != text) {
        level.itemText = text;
        level.markerStyle = markerStyleFor(text);
    }
    return numberedItem(level, element, declared, block);
}

} // namespace platform::html
