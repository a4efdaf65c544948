// SPDX-License-Identifier: MIT
#pragma once

#include "formats/QLChecklistAttachmentCell.h"
#include "platform/attributedtext/AttributedString.h"
#include "platform/attributedtext/TextAttachment.h"
#include "platform/propertylist/KeyedCoding.h"

#include <QByteArray>
#include <QStringList>
#include <QVariant>

#include <memory>

// The checkbox at the beginning of a checklist's line, as an attachment of the text.
class QLChecklistTextAttachment : public platform::TextAttachment, public platform::KeyedCoding {
public:
    // "com.brightmoor.checklist": the attachment's file type and its pasteboard type.
    static const QString checklistType;
    // The pasteboard's plain string type.
    static const QString stringPasteboardType;

    QLChecklistTextAttachment();

    [[nodiscard]] bool isOn() const { return attachmentCell().isOn(); }
    void setOn(bool on) { attachmentCell().setOn(on); }

    // Makes a cell where there is none.
    [[nodiscard]] QLChecklistAttachmentCell& attachmentCell() const;
    void setAttachmentCell(std::shared_ptr<QLChecklistAttachmentCell> cell)
    {
        m_cell = std::move(cell);
    }

    // The box text of the state.
    [[nodiscard]] QString replacementString() const;
    // The attachment character with checklistParagraphStyle. attachment: this object as the text
    // will own it.
    [[nodiscard]] static platform::AttributedString
    attributedString(const std::shared_ptr<QLChecklistTextAttachment>& attachment);

    // Head indent: the cell's width. First-line head indent: minus that width, so that the box
    // hangs out.
    [[nodiscard]] std::shared_ptr<const platform::ParagraphStyle> checklistParagraphStyle() const;

    // Most faithful first.
    [[nodiscard]] static QStringList writableTypesForPasteboard();
    // checklistType: QByteArray, the keyed archive; the string type: QString, the box text; else
    // invalid.
    [[nodiscard]] static QVariant
    pasteboardPropertyListForType(const std::shared_ptr<QLChecklistTextAttachment>& attachment,
                                  const QString& type);
    [[nodiscard]] static QStringList readableTypesForPasteboard();
    // Null for a type other than checklistType and for data that is no archive of an attachment.
    [[nodiscard]] static std::shared_ptr<QLChecklistTextAttachment>
    initWithPasteboardPropertyList(const QVariant& propertyList, const QString& ofType);

    static const QString archivedClassName;
    [[nodiscard]] QStringList archivedClassNames() const override;
    void encodeWithCoder(platform::KeyedArchiver& coder) override;
    [[nodiscard]] static std::shared_ptr<QLChecklistTextAttachment>
    initWithCoder(platform::KeyedUnarchiver& coder);

private:
    mutable std::shared_ptr<QLChecklistAttachmentCell> m_cell;
};
