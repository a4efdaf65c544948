// SPDX-License-Identifier: MIT
#include "formats/QLChecklistTextAttachment.h"

#include "formats/ChecklistBoxTexts.h"
#include "platform/propertylist/PropertyList.h"
#include "resources/Resources.h"

#include <deque>

namespace {

using platform::ButtonCell;
using platform::MouseEvent;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

class RecordingView : public platform::ControlView, private platform::TextViewDelegate {
public:
    void drawImage(const platform::NamedImage& image, const ImageDrawing& drawing) override
    {
        drawnImages += image.name();
        drawings.push_back(drawing);
    }
    std::optional<MouseEvent> nextMouseEvent() override
    {
        if (events.empty())
            return std::nullopt;
        const MouseEvent event = events.front();
        events.pop_front();
        return event;
    }
    platform::TextViewDelegate* textViewDelegate() override { return hasDelegate ? this : nullptr; }

    bool hasDelegate = true;
    QStringList drawnImages;
    std::vector<ImageDrawing> drawings;
    std::deque<MouseEvent> events;
    std::vector<qsizetype> clicks;

private:
    void textViewClickedOnCell(ControlView&, platform::TextAttachmentCell&, const QRectF&, qsizetype atIndex) override
    {
        clicks.push_back(atIndex);
    }
};

class ChecklistCellTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { registerResources(); }

    const QRectF m_frame{10, 20, 17, 14};
    RecordingView m_view;
};

TEST_F(ChecklistCellTest, TheButtonDrawsTheImageOfItsStateLeftOfAGap)
{
    QLChecklistButtonCell button;
    EXPECT_EQ(button.image().name(), text("TextChecklistOff"));
    const QSizeF image = button.image().size();
    EXPECT_GT(image.width(), 0);
    EXPECT_EQ(button.cellSize(), QSizeF(image.width() + 3, image.height()));
    EXPECT_EQ(button.imageRectForBounds(m_frame), QRectF(10, 20, 14, 14));
    button.drawWithFrame(m_frame, m_view);
    button.setState(ButtonCell::StateOn);
    button.drawWithFrame(m_frame, m_view);
    EXPECT_EQ(m_view.drawnImages, QStringList({text("TextChecklistOff"), text("TextChecklistOn")}));
    const auto& drawing = m_view.drawings.front();
    EXPECT_EQ(drawing.target, QRectF(10, 20, 14, 14));
    EXPECT_TRUE(drawing.source.isEmpty());
    EXPECT_EQ(drawing.fraction, 1);
    EXPECT_TRUE(drawing.respectsFlipped);
}

TEST_F(ChecklistCellTest, AMixedButtonShowsTheEmptyBox)
{
    QLChecklistButtonCell button;
    button.setState(ButtonCell::StateMixed);
    EXPECT_EQ(button.image().name(), text("TextChecklistOff"));
}

TEST_F(ChecklistCellTest, TheCellSetsItsButtonUpAsASwitch)
{
    const QLChecklistAttachmentCell cell;
    EXPECT_EQ(cell.buttonCell().state(), ButtonCell::StateOff);
    EXPECT_EQ(cell.buttonCell().imagePosition(), ButtonCell::ImagePosition::NoImage);
    EXPECT_EQ(cell.buttonCell().buttonType(), ButtonCell::Type::Switch);
    EXPECT_TRUE(cell.buttonCell().title().isEmpty());
    EXPECT_EQ(cell.cellSize(), cell.buttonCell().cellSize());
    EXPECT_EQ(cell.cellBaselineOffset(), QPointF(0, -2));
    EXPECT_TRUE(cell.wantsToTrackMouse());
}

TEST_F(ChecklistCellTest, SettingTheStateSetsTheButtons)
{
    QLChecklistAttachmentCell cell;
    cell.setOn(true);
    EXPECT_EQ(cell.buttonCell().state(), 1);
    cell.setOn(false);
    EXPECT_EQ(cell.buttonCell().state(), 0);
}

TEST_F(ChecklistCellTest, AnyStateButOffCountsAsOn)
{
    QLChecklistAttachmentCell cell;
    QLChecklistButtonCell sender;
    sender.setState(ButtonCell::StateMixed);
    cell.buttonClicked(sender);
    EXPECT_TRUE(cell.isOn());
    EXPECT_EQ(cell.buttonCell().state(), 1);
    sender.setState(ButtonCell::StateOff);
    cell.buttonClicked(sender);
    EXPECT_FALSE(cell.isOn());
}

TEST_F(ChecklistCellTest, TheCellDrawsItsButton)
{
    QLChecklistAttachmentCell cell;
    cell.setOn(true);
    cell.drawWithFrame(m_frame, m_view);
    EXPECT_EQ(m_view.drawnImages, QStringList(text("TextChecklistOn")));
}

TEST_F(ChecklistCellTest, ACompletedClickTurnsTheBoxOverAndTellsTheDelegate)
{
    QLChecklistAttachmentCell cell;
    m_view.events = {{MouseEvent::Kind::Dragged, {12, 22}}, {MouseEvent::Kind::Up, {13, 23}}};
    EXPECT_TRUE(cell.trackMouse({MouseEvent::Kind::Down, {12, 22}}, m_frame, m_view, 42, true));
    EXPECT_TRUE(cell.isOn());
    EXPECT_EQ(m_view.clicks, std::vector<qsizetype>{42});
}

TEST_F(ChecklistCellTest, AClickThatEndsOutsideChangesNothing)
{
    QLChecklistAttachmentCell cell;
    m_view.events = {{MouseEvent::Kind::Up, {500, 500}}};
    EXPECT_FALSE(cell.trackMouse({MouseEvent::Kind::Down, {12, 22}}, m_frame, m_view, 1, true));
    EXPECT_FALSE(cell.isOn());
    EXPECT_TRUE(m_view.clicks.empty());
}

TEST_F(ChecklistCellTest, LeavingTheBoxEndsTheTrackingUnlessItGoesOnUntilTheMouseIsUp)
{
    QLChecklistAttachmentCell cell;
    const std::deque<MouseEvent> outAndBack = {{MouseEvent::Kind::Dragged, {500, 500}}, {MouseEvent::Kind::Up, {12, 22}}};
    m_view.events = outAndBack;
    EXPECT_FALSE(cell.trackMouse({MouseEvent::Kind::Down, {12, 22}}, m_frame, m_view, 1, false));
    m_view.events = outAndBack;
    EXPECT_TRUE(cell.trackMouse({MouseEvent::Kind::Down, {12, 22}}, m_frame, m_view, 1, true));
}

TEST_F(ChecklistCellTest, AViewWithoutADelegateIsClickedAllTheSame)
{
    QLChecklistAttachmentCell cell;
    m_view.hasDelegate = false;
    m_view.events = {{MouseEvent::Kind::Up, {12, 22}}};
    EXPECT_TRUE(cell.trackMouse({MouseEvent::Kind::Down, {12, 22}}, m_frame, m_view, 1, true));
    EXPECT_TRUE(cell.isOn());
}

TEST_F(ChecklistCellTest, TheAttachmentForwardsItsStateAndNamesItsType)
{
    QLChecklistTextAttachment attachment;
    EXPECT_EQ(attachment.fileType(), text("com.brightmoor.checklist"));
    EXPECT_FALSE(attachment.isOn());
    EXPECT_EQ(attachment.replacementString(), checklist::uncheckedBoxText);
    attachment.setOn(true);
    EXPECT_TRUE(attachment.attachmentCell().isOn());
    EXPECT_EQ(attachment.replacementString(), checklist::checkedBoxText);
}

TEST_F(ChecklistCellTest, AnAttachmentWithoutACellMakesOne)
{
    QLChecklistTextAttachment attachment;
    attachment.setAttachmentCell(nullptr);
    EXPECT_FALSE(attachment.isOn());
    attachment.setOn(true);
    EXPECT_TRUE(attachment.isOn());
}

TEST_F(ChecklistCellTest, TheParagraphStyleHangsTheBoxOut)
{
    const QLChecklistTextAttachment attachment;
    const double width = attachment.attachmentCell().cellSize().width();
    EXPECT_GT(width, 3);
    EXPECT_EQ(attachment.checklistParagraphStyle()->headIndent, width);
    EXPECT_EQ(attachment.checklistParagraphStyle()->firstLineHeadIndent, -width);
}

TEST_F(ChecklistCellTest, TheAttachmentsTextIsOneCharacterWithThatStyle)
{
    const auto attachment = std::make_shared<QLChecklistTextAttachment>();
    const platform::AttributedString string = QLChecklistTextAttachment::attributedString(attachment);
    EXPECT_EQ(string.string(), QString(QChar(0xFFFC)));
    EXPECT_EQ(string.attributesAt(0).attachment, attachment);
    EXPECT_EQ(*string.attributesAt(0).paragraphStyle, *attachment->checklistParagraphStyle());
}

TEST_F(ChecklistCellTest, ThePasteboardOffersTheCheckboxThenItsText)
{
    const auto attachment = std::make_shared<QLChecklistTextAttachment>();
    attachment->setOn(true);
    EXPECT_EQ(QLChecklistTextAttachment::writableTypesForPasteboard(),
              QStringList({text("com.brightmoor.checklist"), text("NSStringPboardType")}));
    EXPECT_EQ(QLChecklistTextAttachment::readableTypesForPasteboard(), QStringList(text("com.brightmoor.checklist")));
    const auto offer = [&](const char* type) { return QLChecklistTextAttachment::pasteboardPropertyListForType(attachment, text(type)); };
    EXPECT_EQ(offer("NSStringPboardType").toString(), checklist::checkedBoxText);
    EXPECT_FALSE(offer("public.html").isValid());

    const auto pasted = QLChecklistTextAttachment::initWithPasteboardPropertyList(offer("com.brightmoor.checklist"), text("com.brightmoor.checklist"));
    ASSERT_TRUE(pasted);
    EXPECT_NE(pasted, attachment);
    EXPECT_TRUE(pasted->isOn());
}

TEST_F(ChecklistCellTest, OtherPasteboardTypesYieldNoAttachment)
{
    EXPECT_FALSE(QLChecklistTextAttachment::initWithPasteboardPropertyList(text("\u2610 "), text("NSStringPboardType")));
    EXPECT_FALSE(QLChecklistTextAttachment::initWithPasteboardPropertyList(QByteArray("junk"), text("com.brightmoor.checklist")));
}

TEST_F(ChecklistCellTest, TheCellsArchiveRecordsItsStateUnderItsOwnKey)
{
    const auto cell = std::make_shared<QLChecklistAttachmentCell>();
    cell->setOn(true);
    const auto data = platform::KeyedArchiver::archivedDataWithRootObject(cell);
    ASSERT_TRUE(data);
    bool found = false;
    for (const QVariant& object : platform::propertyListFromData(*data)->toMap().value(text("$objects")).toList())
        found = found || object.toMap().value(text("QLChecklistAttachmentCellOn")) == QVariant(true);
    EXPECT_TRUE(found);
    const auto read = platform::KeyedUnarchiver::unarchiveObjectWithData(
        *data, {{QLChecklistAttachmentCell::archivedClassName, &QLChecklistAttachmentCell::initWithCoder}});
    const auto copy = read.objectAs<QLChecklistAttachmentCell>();
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isOn());
    EXPECT_EQ(copy->buttonCell().state(), 1);
}

} // namespace
