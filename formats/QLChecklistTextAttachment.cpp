// SPDX-License-Identifier: MIT
#include "formats/QLChecklistTextAttachment.h"

#include "formats/ChecklistBoxTexts.h"

using platform::AttributedString;
using platform::KeyedArchiver;
using platform::KeyedUnarchiver;

namespace {

// Where the platform's text attachments keep their cell.
const QString cellKey = QStringLiteral("NSCell");

platform::ArchivedClasses archivedClasses()
{
    return {
        {QLChecklistTextAttachment::archivedClassName, &QLChecklistTextAttachment::initWithCoder},
        {QLChecklistAttachmentCell::archivedClassName, &QLChecklistAttachmentCell::initWithCoder}};
}

} // namespace

const QString QLChecklistTextAttachment::checklistType = QStringLiteral("com.brightmoor.checklist");
const QString QLChecklistTextAttachment::stringPasteboardType =
    QStringLiteral("NSStringPboardType");
const QString QLChecklistTextAttachment::archivedClassName =
    QStringLiteral("QLChecklistTextAttachment");

QLChecklistTextAttachment::QLChecklistTextAttachment()
    : m_cell(std::make_shared<QLChecklistAttachmentCell>())
{
    setFileType(checklistType);
}

QLChecklistAttachmentCell& QLChecklistTextAttachment::attachmentCell() const
{
    if (!m_cell)
        m_cell = std::make_shared<QLChecklistAttachmentCell>();
    return *m_cell;
}

QString QLChecklistTextAttachment::replacementString() const
{
    return isOn() ? checklist::checkedBoxText : checklist::uncheckedBoxText;
}

AttributedString QLChecklistTextAttachment::attributedString(
    const std::shared_ptr<QLChecklistTextAttachment>& attachment)
{
    AttributedString text = AttributedString::withAttachment(attachment);
    text.setParagraphStyle({0, text.length()}, attachment->checklistParagraphStyle());
    return text;
}

std::shared_ptr<const platform::ParagraphStyle>
QLChecklistTextAttachment::checklistParagraphStyle() const
{
    const double width = attachmentCell().cellSize().width();
    auto style = std::make_shared<platform::ParagraphStyle>();
    style->headIndent = width;
    style->firstLineHeadIndent = 0 - width;
    return style;
}

QStringList QLChecklistTextAttachment::writableTypesForPasteboard()
{
    return {checklistType, stringPasteboardType};
}

QVariant QLChecklistTextAttachment::pasteboardPropertyListForType(
    const std::shared_ptr<QLChecklistTextAttachment>& attachment, const QString& type)
{
    if (type == checklistType) {
        const std::optional<QByteArray> archive = KeyedArchiver::archivedDataWithRootObject(
            std::static_pointer_cast<platform::KeyedCoding>(attachment));
        return archive ? QVariant(*archive) : QVariant();
    }
    if (type == stringPasteboardType)
        return attachment->replacementString();
    return {};
}

QStringList QLChecklistTextAttachment::readableTypesForPasteboard()
{
    return {checklistType};
}

std::shared_ptr<QLChecklistTextAttachment>
QLChecklistTextAttachment::initWithPasteboardPropertyList(const QVariant& propertyList,
                                                          const QString& ofType)
{
    if (ofType != checklistType)
        return nullptr;
    const auto root =
        KeyedUnarchiver::unarchivedRootObject(propertyList.toByteArray(), archivedClasses());
    return root ? root->objectAs<QLChecklistTextAttachment>() : nullptr;
}

QStringList QLChecklistTextAttachment::archivedClassNames() const
{
    return {archivedClassName, QStringLiteral("NSTextAttachment"), QStringLiteral("NSObject")};
}

void QLChecklistTextAttachment::encodeWithCoder(KeyedArchiver& coder)
{
    coder.encodeObject(std::static_pointer_cast<platform::KeyedCoding>(m_cell), cellKey);
}

std::shared_ptr<QLChecklistTextAttachment>
QLChecklistTextAttachment::initWithCoder(KeyedUnarchiver& coder)
{
    auto attachment = std::make_shared<QLChecklistTextAttachment>();
    attachment->setAttachmentCell(coder.decodeObjectAs<QLChecklistAttachmentCell>(cellKey));
    return attachment;
}
