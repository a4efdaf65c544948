// SPDX-License-Identifier: MIT
#include "formats/QLNoteChecklistItem.h"

#include "formats/CoderQLExtensions.h"
#include "formats/QLChecklistTextAttachment.h"

namespace {
const QString onKey = QStringLiteral("on");
const QString rangeKey = QStringLiteral("range");
} // namespace

const QString QLNoteChecklistItem::archivedClassName = QStringLiteral("QLNoteChecklistItem");

QLNoteChecklistItem::QLNoteChecklistItem(bool on, platform::TextRange range)
    : m_on(on)
    , m_range(range)
{
}

platform::AttributedString QLNoteChecklistItem::attributedString() const
{
    const auto attachment = std::make_shared<QLChecklistTextAttachment>();
    attachment->setOn(m_on);
    return QLChecklistTextAttachment::attributedString(attachment);
}

std::shared_ptr<const platform::ParagraphStyle> QLNoteChecklistItem::checklistParagraphStyle() const
{
    return QLChecklistTextAttachment().checklistParagraphStyle();
}

QStringList QLNoteChecklistItem::archivedClassNames() const
{
    return {archivedClassName, QStringLiteral("NSObject")};
}

void QLNoteChecklistItem::encodeWithCoder(platform::KeyedArchiver& coder)
{
    coder.encodeBool(m_on, onKey);
    encodeRangeInQuillery(coder, m_range, rangeKey);
}

std::shared_ptr<QLNoteChecklistItem>
QLNoteChecklistItem::initWithCoder(platform::KeyedUnarchiver& coder)
{
    auto item = std::make_shared<QLNoteChecklistItem>();
    item->setOn(coder.decodeBool(onKey));
    item->setRange(decodeRangeInQuilleryForKey(coder, rangeKey));
    return item;
}
