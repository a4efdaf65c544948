// SPDX-License-Identifier: MIT
#include "formats/AttributedStringQLNoteExtensions.h"

#include "formats/ChecklistBoxTexts.h"
#include "formats/QLChecklistTextAttachment.h"
#include "platform/core/SystemLog.h"

#include <stdexcept>

using platform::AttributedString;
using platform::TextRange;

namespace {

// The checklist style, in the table cells that the line stood in: without them the table would break apart at
// every box.
std::shared_ptr<const platform::ParagraphStyle>
checklistStyleWithin(const std::shared_ptr<const platform::ParagraphStyle>& before, const QLNoteChecklistItem& item)
{
    const std::shared_ptr<const platform::ParagraphStyle> style = item.checklistParagraphStyle();
    if (!before || before->textBlocks.empty())
        return style;
    auto inCells = std::make_shared<platform::ParagraphStyle>(*style);
    inCells->textBlocks = before->textBlocks;
    return inCells;
}

void restoreItems(AttributedString& text, const QLNoteChecklistItems& items)
{
    qsizetype offset = 0;
    for (const auto& item : items) {
        const TextRange target{item->range().location + offset, item->range().length};
        const AttributedString attachment = item->attributedString();
        const auto styleBefore = target.length > 0 ? text.attributesAt(target.location).paragraphStyle : nullptr;
        text.replaceCharacters(target, attachment);
        offset += attachment.length() - target.length;
        // The attachment is shorter than its box text, so the range may now reach beyond the text's end.
        const TextRange remaining{target.location, std::min(target.length, text.length() - target.location)};
        text.setParagraphStyle(text.lineRangeFor(remaining), checklistStyleWithin(styleBefore, *item));
    }
}

// The end of the stretch from the position on that has the same attachment.
qsizetype endOfAttachment(const AttributedString& text, qsizetype position, qsizetype limit)
{
    const platform::TextAttachment* attachment = text.attributesAt(position).attachment.get();
    TextRange run;
    while (position < limit && text.attributesAt(position, &run).attachment.get() == attachment)
        position = run.end();
    return std::min(position, limit);
}

} // namespace

QLNoteChecklistItems recoverChecklists(const AttributedString& text)
{
    QLNoteChecklistItems items;
    const QStringView string(text.string());
    for (qsizetype start = 0; start < string.size();) {
        const TextRange line = text.lineRangeFor({start, 0});
        const QStringView content = string.sliced(line.location, line.length);
        if (content.startsWith(checklist::checkedBoxText)) {
            items.push_back(std::make_shared<QLNoteChecklistItem>(
                true, TextRange{line.location, checklist::checkedBoxText.size()}));
        } else if (content.startsWith(checklist::uncheckedBoxText)) {
            items.push_back(std::make_shared<QLNoteChecklistItem>(
                false, TextRange{line.location, checklist::uncheckedBoxText.size()}));
        }
        start = line.end();
    }
    return items;
}

AttributedString attributedStringByReplacingChecklists(const AttributedString& text, QLNoteChecklistItems* items,
                                                       TextRange inRange)
{
    AttributedString copy = text;
    QLNoteChecklistItems found;
    qsizetype limit = inRange.end();
    for (qsizetype position = inRange.location; position < limit;) {
        const qsizetype end = endOfAttachment(copy, position, limit);
        const auto box = std::dynamic_pointer_cast<QLChecklistTextAttachment>(copy.attributesAt(position).attachment);
        if (!box) {
            position = end;
            continue;
        }
        const QString boxText = box->replacementString();
        found.push_back(std::make_shared<QLNoteChecklistItem>(box->isOn(), TextRange{position, boxText.size()}));
        const TextRange replaced{position, end - position};
        copy.replaceCharacters(replaced, boxText);
        // The box text stands as text, not for the attachment whose place it took.
        copy.changeAttributes({position, boxText.size()},
                              [](platform::TextAttributes& attributes) { attributes.attachment = nullptr; });
        position += boxText.size();
        limit += boxText.size() - replaced.length;
    }
    if (items)
        *items = std::move(found);
    return copy;
}

QLNoteChecklistItems restoreChecklists(AttributedString& text, const QLNoteChecklistItems& items)
{
    try {
        restoreItems(text, items);
        return items;
    } catch (const std::out_of_range& exception) {
        platform::systemLog(
            QStringLiteral("Caught exception processing checklists: %1").arg(QString::fromUtf8(exception.what())));
    }
    return restoreChecklists(text, recoverChecklists(text));
}
