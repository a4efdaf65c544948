// SPDX-License-Identifier: MIT
#include "formats/AttributedStringQLNoteExtensions.h"

#include "formats/ChecklistBoxTexts.h"
#include "formats/ChecklistRestoring.h"
#include "formats/QLChecklistTextAttachment.h"
#include "platform/core/SystemLog.h"

#include <stdexcept>

using platform::AttributedString;
using platform::TextRange;

namespace {

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

AttributedString attributedStringByReplacingChecklists(const AttributedString& text,
                                                       QLNoteChecklistItems* items,
                                                       TextRange inRange)
{
    QLNoteChecklistItems found;
    std::vector<AttributedString::Replacement> boxTexts;
    // How much longer the copy is than the text, up to where it is done.
    qsizetype growth = 0;
    for (qsizetype position = inRange.location; position < inRange.end();) {
        const TextRange replaced{position,
                                 endOfAttachment(text, position, inRange.end()) - position};
        position = replaced.end();
        platform::TextAttributes attributes = text.attributesAt(replaced.location);
        const auto box =
            std::dynamic_pointer_cast<QLChecklistTextAttachment>(attributes.attachment);
        if (!box)
            continue;
        const QString boxText = box->replacementString();
        // The box text stands as text, not for the attachment whose place it takes.
        attributes.attachment = nullptr;
        boxTexts.push_back({replaced, AttributedString(boxText, attributes)});
        const TextRange inCopy{replaced.location + growth, boxText.size()};
        found.push_back(std::make_shared<QLNoteChecklistItem>(box->isOn(), inCopy));
        growth += boxText.size() - replaced.length;
    }
    AttributedString copy = text;
    copy.replaceCharacters(boxTexts);
    if (items)
        *items = std::move(found);
    return copy;
}

QLNoteChecklistItems restoreChecklists(AttributedString& text, const QLNoteChecklistItems& items)
{
    try {
        ChecklistRestoring(text).restore(items);
        return items;
    } catch (const std::out_of_range& exception) {
        platform::systemLog(QStringLiteral("Caught exception processing checklists: %1")
                                .arg(QString::fromUtf8(exception.what())));
    }
    return restoreChecklists(text, recoverChecklists(text));
}
