// SPDX-License-Identifier: MIT
#include "formats/ChecklistRestoring.h"

#include <stdexcept>

using platform::AttributedString;
using platform::ParagraphStyle;
using platform::TextAttributes;
using platform::TextRange;

namespace {

using StylePointer = std::shared_ptr<const ParagraphStyle>;

// The checklist style in the table cells that a paragraph stands in: without them the table would
// break apart at every box.
StylePointer styleWithinCells(const StylePointer& style, const StylePointer& before)
{
    if (!before || before->textBlocks.empty())
        return style;
    auto inCells = std::make_shared<ParagraphStyle>(*style);
    inCells->textBlocks = before->textBlocks;
    return inCells;
}

// What gets the style with the line round it: as many characters as the box text had, once its
// attachment, which is only one, stands there. That is beyond a line that holds nothing else.
TextRange styledBy(TextRange box, qsizetype textLength)
{
    const qsizetype rest = textLength - box.location;
    const qsizetype length =
        box.length > rest / 2 ? rest : std::max<qsizetype>(2 * box.length - 1, 0);
    return {box.location, length};
}

} // namespace

TextRange ChecklistRestoring::placeOf(const QLNoteChecklistItem& item) const
{
    const TextRange range = item.range();
    // Subtracted rather than added, so that no range overflows.
    const qsizetype limit = m_text.length() - m_offset;
    if (range.location < -m_offset || range.location > limit || range.length < 0 ||
        range.length > limit - range.location)
        throw std::out_of_range("a checkbox does not lie within the text");
    return {range.location + m_offset, range.length};
}

void ChecklistRestoring::add(Pass& pass, const QLNoteChecklistItem& item, TextRange box)
{
    AttributedString attachment = item.attributedString();
    if (box.location < m_text.length()) {
        const StylePointer before = m_text.attributesAt(box.location).paragraphStyle;
        attachment.changeAttributes(
            {0, attachment.length()}, [&before](TextAttributes& attributes) {
                attributes.paragraphStyle = styleWithinCells(attributes.paragraphStyle, before);
            });
    }
    pass.boxes.push_back({box, std::move(attachment)});
    const TextRange styled = styledBy(box, m_text.length());
    TextRange* const last = pass.lines.empty() ? nullptr : &pass.lines.back();
    if (last && styled.length > 0 && styled.end() <= last->end())
        return;
    const TextRange line = m_text.lineRangeFor(styled);
    if (!last || line.location >= last->end())
        pass.lines.push_back(line);
    else
        last->length = std::max(last->end(), line.end()) - last->location;
}

void ChecklistRestoring::apply(const Pass& pass)
{
    const StylePointer style = QLNoteChecklistItem().checklistParagraphStyle();
    m_text.changeAttributes(pass.lines, [&style](TextAttributes& attributes) {
        // An attachment that says nothing of its paragraph may stand in a cell for all that.
        if (attributes.paragraphStyle || !attributes.attachment)
            attributes.paragraphStyle = styleWithinCells(style, attributes.paragraphStyle);
    });
    m_text.replaceCharacters(pass.boxes);
}

void ChecklistRestoring::restore(const QLNoteChecklistItems& items)
{
    for (auto item = items.begin(); item != items.end();) {
        Pass pass;
        qsizetype growth = 0;
        qsizetype position = 0;
        try {
            for (; item != items.end(); ++item) {
                const bool ascends = (*item)->range().location >= position - m_offset;
                if (!pass.boxes.empty() && !ascends)
                    break;
                const TextRange box = placeOf(**item);
                position = box.end();
                add(pass, **item, box);
                growth += pass.boxes.back().text.length() - box.length;
            }
        } catch (const std::out_of_range&) {
            apply(pass);
            throw;
        }
        apply(pass);
        m_offset += growth;
    }
}
