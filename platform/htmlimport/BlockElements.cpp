// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlWalker.h"

namespace platform::html {

namespace {

constexpr std::size_t topEdge = static_cast<std::size_t>(TextEdge::Top);
constexpr std::size_t bottomEdge = static_cast<std::size_t>(TextEdge::Bottom);

// Blocks that only divide an item's text. The others (headings, quotes, code) are paragraphs even
// there.
bool isSoftBlock(Tag tag, const StyleDeclarations& declared)
{
    if (isBox(declared))
        return false;
    switch (tag) {
    case Tag::Div:
    case Tag::P:
    case Tag::Center:
    case Tag::Section:
    case Tag::Article:
    case Tag::Address:
    case Tag::Span:
    case Tag::Font:
    case Tag::A:
    case Tag::Label:
    case Tag::Unknown:
        return true;
    default:
        return false;
    }
}

// Rows of a footer are shown last, wherever they stand.
void moveFooterToEnd(xmlNode* table)
{
    xmlNode* footer = nullptr;
    for (xmlNode* child = table->children; child && !footer; child = child->next) {
        if (child->type == XML_ELEMENT_NODE && tagOf(child) == Tag::Tfoot)
            footer = child;
    }
    if (!footer || !footer->next)
        return;
    xmlUnlinkNode(footer);
    xmlAddChild(table, footer);
}

} // namespace

void HtmlWalker::enterItem(Frame& frame, const xmlNode* element, const StyleDeclarations& declared)
{
    frame.roles |= IsItem;
    ListBuilder::Item item = m_lists.enterItem(element, declared, frame.block, frame.text);
    frame.block = item.block;
    m_flow.enterBlock(frame.block, {distance(declared.margin[topEdge], *frame.text, m_fonts), true},
                      TextFlow::Boundary::Hard);
    if (!item.prefix.text.isEmpty() && !frame.text->hidden)
        m_flow.setPrefix(std::move(item.prefix));
}

void HtmlWalker::settlePendingPrefix(Tag tag, const TextStylePointer& text)
{
    if (!m_flow.hasPendingPrefix())
        return;
    // An item that holds nothing but a list is a level of indentation; a bullet alone would be
    // noise.
    if (isList(tag) && m_flow.pendingPrefixIsBullet())
        m_flow.dropPrefix();
    else
        m_flow.addEmptyParagraph(text);
}

bool HtmlWalker::enterTablePart(Frame& frame, xmlNode* element, Tag tag,
                                const StyleDeclarations& declared)
{
    if (tag == Tag::Table && m_tables.canEnterTable()) {
        moveFooterToEnd(element);
        m_tables.enterTable(element, declared, *frame.text);
        frame.roles |= IsTable;
        frame.expectsCells = true;
        return true;
    }
    if (!frame.expectsCells || !isTablePart(tag) || tag == Tag::Caption)
        return false;
    if (tag == Tag::Tr) {
        m_tables.enterRow(declared);
        frame.roles |= IsRow;
    } else if (isCell(tag)) {
        frame.block = m_tables.enterCell(element, declared, *frame.text, frame.block);
        frame.roles |= IsCell;
        frame.expectsCells = false;
        m_lists.enterCell();
        m_flow.enterBlock(frame.block, {}, TextFlow::Boundary::Hard);
        m_flow.forgetMargins();
        frame.paragraphsBefore = m_flow.paragraphCount();
        return true;
    } else if (tag != Tag::Table) {
        m_tables.enterGroup(declared);
    }
    return true;
}

void HtmlWalker::enterBlock(Frame& frame, xmlNode* element, Tag tag,
                            const ElementStyles::Result& style)
{
    const StyleDeclarations& declared = style.declared;
    frame.roles = IsBlock;
    if (isCell(tag) && frame.expectsCells) {
        (void)enterTablePart(frame, element, tag, declared);
        return;
    }
    const BlockStylePointer& parentBlock = m_frames.back().block;
    frame.block = derivedBlockStyle(parentBlock, declared, *frame.text, m_fonts, tag);
    if (isList(tag) || tag == Tag::Table)
        settlePendingPrefix(tag, frame.text);
    const bool isInTable = enterTablePart(frame, element, tag, declared);
    if (isList(tag)) {
        frame.roles |= IsList;
        frame.block = m_lists.enterList(element, tag, declared, frame.block);
    } else if (tag == Tag::Li) {
        enterItem(frame, element, declared);
        frame.bottomMargin = distance(declared.margin[bottomEdge], *frame.text, m_fonts);
        return;
    }
    // Lines of one paragraph cannot lie differently.
    const bool isSoft = parentBlock->isInItem && frame.block->isInItem &&
                        isSoftBlock(tag, declared) &&
                        parentBlock->alignment == frame.block->alignment &&
                        parentBlock->direction == frame.block->direction;
    TextFlow::Margin top;
    if (!isBox(declared) && !isInTable) {
        top = {distance(declared.margin[topEdge], *frame.text, m_fonts) +
                   distance(declared.padding[topEdge], *frame.text, m_fonts),
               style.hasOwnTopMargin};
        frame.bottomMargin = distance(declared.margin[bottomEdge], *frame.text, m_fonts) +
                             distance(declared.padding[bottomEdge], *frame.text, m_fonts);
    }
    frame.roles |= isSoft ? IsSoft : 0U;
    m_flow.enterBlock(frame.block, top,
                      isSoft ? TextFlow::Boundary::Soft : TextFlow::Boundary::Hard);
}

void HtmlWalker::leaveCell(const Frame& cell)
{
    m_flow.leaveBlock(cell.block, 0, TextFlow::Boundary::Hard);
    if (m_flow.paragraphCount() == cell.paragraphsBefore)
        m_flow.addEmptyParagraph(cell.text);
    m_lists.leaveCell();
}

} // namespace platform::html
