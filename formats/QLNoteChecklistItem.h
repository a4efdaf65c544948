// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/propertylist/KeyedCoding.h"
#include "platform/propertylist/KeyedUnarchiver.h"

#include <memory>
#include <vector>

// The archived form of one checkbox: its state, and where its box text lies in the stored text.
class QLNoteChecklistItem : public platform::KeyedCoding {
public:
    QLNoteChecklistItem() = default;
    QLNoteChecklistItem(bool on, platform::TextRange range);

    [[nodiscard]] bool isOn() const { return m_on; }
    void setOn(bool on) { m_on = on; }

    // In UTF-16 code units; 3 long for a checked box, 2 for an empty one.
    [[nodiscard]] platform::TextRange range() const { return m_range; }
    void setRange(platform::TextRange range) { m_range = range; }

    // One new checkbox attachment in the item's state.
    [[nodiscard]] platform::AttributedString attributedString() const;
    // The paragraph style of a line that begins with a checkbox.
    [[nodiscard]] std::shared_ptr<const platform::ParagraphStyle> checklistParagraphStyle() const;

    static const QString archivedClassName;
    [[nodiscard]] QStringList archivedClassNames() const override;
    void encodeWithCoder(platform::KeyedArchiver& coder) override;
    [[nodiscard]] static std::shared_ptr<QLNoteChecklistItem>
    initWithCoder(platform::KeyedUnarchiver& coder);

private:
    bool m_on = false;
    platform::TextRange m_range;
};

// The checkboxes of a text in the order in which they stand.
using QLNoteChecklistItems = std::vector<std::shared_ptr<QLNoteChecklistItem>>;
