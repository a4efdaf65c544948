// SPDX-License-Identifier: MIT
#pragma once

#include "formats/QLNoteChecklistItem.h"
#include "platform/attributedtext/AttributedString.h"

#include <vector>

// Puts checkbox attachments into a text where items say that box texts stand, and gives the lines
// round them the checklist style. What it does is what the items would do one after another, each
// to the text that the one before left; but those that ascend are taken in one pass, because a long
// list would move the rest of its text once an item.
class ChecklistRestoring {
public:
    explicit ChecklistRestoring(platform::AttributedString& text)
        : m_text(text)
    {
    }

    // Throws std::out_of_range at the first item that does not lie within the text; those before it
    // are in their places then.
    void restore(const QLNoteChecklistItems& items);

private:
    // What some items do to the text as it is.
    struct Pass {
        std::vector<platform::AttributedString::Replacement> boxes;
        std::vector<platform::TextRange> lines;
    };

    // The item's range in the text as it is.
    [[nodiscard]] platform::TextRange placeOf(const QLNoteChecklistItem& item) const;
    void add(Pass& pass, const QLNoteChecklistItem& item, platform::TextRange box);
    void apply(const Pass& pass);

    platform::AttributedString& m_text;
    // How much longer the text is than the one that the items were made for, up to where they are
    // done.
    qsizetype m_offset = 0;
};
