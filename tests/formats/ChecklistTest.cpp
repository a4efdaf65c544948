// SPDX-License-Identifier: MIT
#include "formats/AttributedStringQLNoteExtensions.h"

#include "formats/ChecklistBoxTexts.h"
#include "formats/QLChecklistTextAttachment.h"
#include "platform/core/SystemLog.h"

#include <random>

namespace {

using platform::AttributedString;
using platform::TextRange;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

QString text(const char* utf8) { return QString::fromUtf8(utf8); }

const QString threeLines = checklist::uncheckedBoxText + text("a\nx\n") + checklist::checkedBoxText + text("b");

std::vector<std::pair<bool, TextRange>> describe(const QLNoteChecklistItems& items)
{
    std::vector<std::pair<bool, TextRange>> described;
    for (const auto& item : items)
        described.emplace_back(item->isOn(), item->range());
    return described;
}

QString withAttachments(const char* utf8) { return text(utf8).replace(u'#', QChar(AttributedString::attachmentCharacter)); }

TEST(ChecklistTest, BoxTextsAreTheExactCodeUnits)
{
    EXPECT_EQ(checklist::checkedBoxText, QString(QChar(0x2611)) + QChar(0xFE0E) + u' ');
    EXPECT_EQ(checklist::uncheckedBoxText, QString(QChar(0x2610)) + u' ');
}

TEST(ChecklistTest, RecoversTheBoxesAtLineStarts)
{
    EXPECT_THAT(describe(recoverChecklists(AttributedString(threeLines))),
                ElementsAre(std::pair(false, TextRange{0, 2}), std::pair(true, TextRange{6, 3})));
}

TEST(ChecklistTest, ABoxTextInTheMiddleOfALineIsText)
{
    EXPECT_THAT(recoverChecklists(AttributedString(text("a ") + checklist::uncheckedBoxText + text("b"))), IsEmpty());
    EXPECT_THAT(recoverChecklists(AttributedString(text(" ") + checklist::checkedBoxText)), IsEmpty());
}

TEST(ChecklistTest, ABoxWithoutItsBlankOrItsSelectorIsText)
{
    EXPECT_THAT(recoverChecklists(AttributedString(text("\u2610a\n\u2611 b\n\u2611\uFE0Ec"))), IsEmpty());
}

TEST(ChecklistTest, EveryKindOfLineEndBeginsALine)
{
    const QString box = checklist::uncheckedBoxText;
    const QString lines = box + text("\n") + box + text("\r") + box + text("\r\n") + box + QChar(0x85) + box + QChar(0x2028) + box
                          + QChar(0x2029) + box;
    EXPECT_EQ(recoverChecklists(AttributedString(lines)).size(), 7u);
}

TEST(ChecklistTest, RestoringPutsAttachmentsAndTheStyleOfTheirLines)
{
    AttributedString restored(threeLines);
    auto own = std::make_shared<platform::ParagraphStyle>();
    own->headIndent = 77;
    restored.setParagraphStyle({4, 2}, own);
    const QLNoteChecklistItems items = recoverChecklists(restored);
    EXPECT_EQ(restoreChecklists(restored, items), items);

    EXPECT_EQ(restored.string(), withAttachments("#a\nx\n#b"));
    for (const qsizetype position : {0, 5}) {
        const auto box = std::dynamic_pointer_cast<QLChecklistTextAttachment>(restored.attributesAt(position).attachment);
        ASSERT_TRUE(box);
        EXPECT_EQ(box->isOn(), position == 5);
        TextRange line;
        const auto style = restored.attributesAt(position + 1, &line).paragraphStyle;
        ASSERT_TRUE(style);
        EXPECT_EQ(*style, *QLChecklistTextAttachment().checklistParagraphStyle());
    }
    EXPECT_EQ(restored.attributesAt(2).paragraphStyle->headIndent, QLChecklistTextAttachment().checklistParagraphStyle()->headIndent);
    EXPECT_EQ(restored.attributesAt(3).paragraphStyle->headIndent, 77);
}

TEST(ChecklistTest, ReplacingGivesBackTheBoxTextAndTheItems)
{
    AttributedString restored(threeLines);
    const QLNoteChecklistItems before = recoverChecklists(restored);
    restoreChecklists(restored, before);
    QLNoteChecklistItems after;
    const AttributedString stored = attributedStringByReplacingChecklists(restored, &after, {0, restored.length()});
    EXPECT_EQ(stored.string(), threeLines);
    EXPECT_EQ(describe(after), describe(before));
    for (qsizetype position = 0; position < stored.length(); ++position)
        EXPECT_FALSE(stored.attributesAt(position).attachment);
    EXPECT_EQ(restored.string(), withAttachments("#a\nx\n#b"));
}

TEST(ChecklistTest, ReplacingLeavesOtherAttachmentsAndWhatLiesOutsideTheRange)
{
    AttributedString mixed = QLNoteChecklistItem(true, {}).attributedString();
    mixed.append(AttributedString::withAttachment(std::make_shared<platform::TextAttachment>()));
    mixed.append(QLNoteChecklistItem(false, {}).attributedString());
    QLNoteChecklistItems items;
    const AttributedString stored = attributedStringByReplacingChecklists(mixed, &items, {0, 2});
    EXPECT_EQ(stored.string(), checklist::checkedBoxText + withAttachments("##"));
    EXPECT_THAT(describe(items), ElementsAre(std::pair(true, TextRange{0, 3})));
    EXPECT_EQ(attributedStringByReplacingChecklists(mixed, nullptr, {0, 3}).string(),
              checklist::checkedBoxText + withAttachments("#") + checklist::uncheckedBoxText);
}

TEST(ChecklistTest, BoxesSideBySideAreTwoBoxes)
{
    AttributedString boxes = QLNoteChecklistItem(true, {}).attributedString();
    boxes.append(QLNoteChecklistItem(true, {}).attributedString());
    QLNoteChecklistItems items;
    static_cast<void>(attributedStringByReplacingChecklists(boxes, &items, {0, 2}));
    EXPECT_THAT(describe(items), ElementsAre(std::pair(true, TextRange{0, 3}), std::pair(true, TextRange{3, 3})));
}

TEST(ChecklistTest, ItemsThatDoNotFitAreGivenUpForTheBoxesInTheText)
{
    QStringList logged;
    const platform::SystemLogObserver observer([&](const QString& message) { logged += message; });
    AttributedString restored(threeLines);
    const QLNoteChecklistItems used
        = restoreChecklists(restored, {std::make_shared<QLNoteChecklistItem>(true, TextRange{500, 3})});
    EXPECT_EQ(restored.string(), withAttachments("#a\nx\n#b"));
    EXPECT_THAT(describe(used), ElementsAre(std::pair(false, TextRange{0, 2}), std::pair(true, TextRange{6, 3})));
    ASSERT_EQ(logged.size(), 1);
    EXPECT_TRUE(logged[0].startsWith(text("Caught exception processing checklists: ")));
}

TEST(ChecklistTest, HostileRangesNeitherCrashNorLoseText)
{
    for (const TextRange range : {TextRange{std::numeric_limits<qsizetype>::max(), 1},
                                  TextRange{1, std::numeric_limits<qsizetype>::max()}, TextRange{-7, 2},
                                  TextRange{std::numeric_limits<qsizetype>::max(), std::numeric_limits<qsizetype>::max()},
                                  TextRange{std::numeric_limits<qsizetype>::min(), 1}}) {
        AttributedString restored(threeLines);
        restoreChecklists(restored, {std::make_shared<QLNoteChecklistItem>(false, range)});
        EXPECT_EQ(restored.string(), withAttachments("#a\nx\n#b"));
        // After an item that makes the text longer.
        AttributedString longer(threeLines);
        restoreChecklists(longer, {std::make_shared<QLNoteChecklistItem>(false, TextRange{}),
                                   std::make_shared<QLNoteChecklistItem>(false, range)});
        EXPECT_EQ(longer.string(), withAttachments("#\u2610 a\nx\n#b"));
    }
}

TEST(ChecklistTest, ABoxAtTheVeryEndIsRestored)
{
    AttributedString restored(text("a\n") + checklist::checkedBoxText);
    restoreChecklists(restored, recoverChecklists(restored));
    EXPECT_EQ(restored.string(), withAttachments("a\n#"));
}

// A table's cell that a line may stand in.
std::shared_ptr<const platform::ParagraphStyle> styleInCell(const std::shared_ptr<platform::TextTable>& table, int column)
{
    auto cell = std::make_shared<platform::TextBlock>();
    cell->table = table;
    cell->column = column;
    auto style = std::make_shared<platform::ParagraphStyle>();
    style->textBlocks.push_back(cell);
    return style;
}

TEST(ChecklistTest, ABoxAloneInItsCellLeavesTheTextOfTheNextCellInItsOwn)
{
    const auto table = std::make_shared<platform::TextTable>();
    AttributedString restored(checklist::checkedBoxText + text("\nabc\n"));
    restored.setParagraphStyle({0, 4}, styleInCell(table, 0));
    restored.setParagraphStyle({4, 4}, styleInCell(table, 1));
    restoreChecklists(restored, recoverChecklists(restored));
    ASSERT_EQ(restored.string(), withAttachments("#\nabc\n"));
    for (qsizetype position = 0; position < restored.length(); ++position) {
        const auto style = restored.attributesAt(position).paragraphStyle;
        ASSERT_EQ(style->textBlocks.size(), 1u) << position;
        EXPECT_EQ(style->textBlocks[0]->column, position < 2 ? 0 : 1) << position;
        EXPECT_EQ(style->headIndent, QLChecklistTextAttachment().checklistParagraphStyle()->headIndent);
    }
}

TEST(ChecklistTest, TheStyleReachesAsFarAsTheBoxTextDidOnceTheBoxIsInItsPlace)
{
    const auto headIndents = [](const QString& string) {
        AttributedString restored(string);
        restoreChecklists(restored, recoverChecklists(restored));
        QString styled;
        for (qsizetype position = 0; position < restored.length(); ++position)
            styled += restored.attributesAt(position).paragraphStyle ? u'+' : u'-';
        return styled;
    };
    // A checked box alone in its line is two characters with the line's end, of the three that it was.
    EXPECT_EQ(headIndents(checklist::checkedBoxText + text("\nnext\nlast")), text("+++++++----"));
    EXPECT_EQ(headIndents(checklist::uncheckedBoxText + text("\nnext\nlast")), text("++---------"));
    EXPECT_EQ(headIndents(checklist::checkedBoxText + text("a\nnext")), text("+++----"));
    EXPECT_EQ(headIndents(text("a\n") + checklist::checkedBoxText), text("--+"));
}

TEST(ChecklistTest, ItemsThatFitBeforeOneThatDoesNotStayRestored)
{
    const platform::SystemLogObserver observer([](const QString&) {});
    AttributedString restored(threeLines);
    const QLNoteChecklistItems used
        = restoreChecklists(restored, {std::make_shared<QLNoteChecklistItem>(true, TextRange{0, 2}),
                                       std::make_shared<QLNoteChecklistItem>(true, TextRange{500, 3})});
    EXPECT_EQ(restored.string(), withAttachments("#a\nx\n#b"));
    EXPECT_THAT(describe(used), ElementsAre(std::pair(true, TextRange{5, 3})));
    EXPECT_TRUE(std::dynamic_pointer_cast<QLChecklistTextAttachment>(restored.attributesAt(0).attachment)->isOn());
}

TEST(ChecklistTest, ItemsOfAnyOrderDoWhatTheyWouldDoOneAfterAnother)
{
    std::mt19937 random(5);
    const auto number = [&random](int below) { return static_cast<qsizetype>(random() % static_cast<unsigned>(below)); };
    for (int round = 0; round < 2000; ++round) {
        const QString string = text("0123456789abcdef").first(number(17));
        QLNoteChecklistItems items;
        for (qsizetype count = number(5); count > 0; --count)
            items.push_back(std::make_shared<QLNoteChecklistItem>(false, TextRange{number(18), number(4)}));
        QString expected = string;
        qsizetype offset = 0;
        for (const auto& item : items) {
            const TextRange target{item->range().location + offset, item->range().length};
            if (target.location < 0 || target.end() > expected.size())
                break;
            expected.replace(target.location, target.length, QChar(AttributedString::attachmentCharacter));
            offset += 1 - target.length;
        }
        const platform::SystemLogObserver observer([](const QString&) {});
        AttributedString restored(string);
        restoreChecklists(restored, items);
        EXPECT_EQ(restored.string(), expected);
    }
}

TEST(ChecklistTest, ALongListComesBackWhole)
{
    AttributedString restored((checklist::checkedBoxText + text("done\n") + checklist::uncheckedBoxText + text("open\n")).repeated(10000));
    const QString string = restored.string();
    const QLNoteChecklistItems items = restoreChecklists(restored, recoverChecklists(restored));
    EXPECT_EQ(items.size(), 20000u);
    QLNoteChecklistItems stored;
    EXPECT_EQ(attributedStringByReplacingChecklists(restored, &stored, {0, restored.length()}).string(), string);
    EXPECT_EQ(describe(stored), describe(items));
}

TEST(ChecklistTest, AnyTextComesBackFromTheRoundTrip)
{
    std::mt19937 random(20240601);
    const QStringList pieces{checklist::checkedBoxText, checklist::uncheckedBoxText, text("\n"), text("\r\n"), text("a"),
                             text("\U0001F600"), text(" "), text("\u2028")};
    for (int round = 0; round < 500; ++round) {
        QString string;
        for (int piece = 0; piece < 20; ++piece)
            string += pieces[static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size()))];
        AttributedString restored(string);
        const QLNoteChecklistItems items = restoreChecklists(restored, recoverChecklists(restored));
        QLNoteChecklistItems stored;
        EXPECT_EQ(attributedStringByReplacingChecklists(restored, &stored, {0, restored.length()}).string(), string);
        EXPECT_EQ(describe(stored), describe(items));
    }
}

TEST(QLNoteChecklistItemTest, ItsAttachmentHasTheChecklistStyle)
{
    const QLNoteChecklistItem item(true, {});
    const AttributedString string = item.attributedString();
    EXPECT_EQ(*string.attributesAt(0).paragraphStyle, *item.checklistParagraphStyle());
}

TEST(QLNoteChecklistItemTest, ComesBackFromItsArchive)
{
    const auto item = std::make_shared<QLNoteChecklistItem>(true, TextRange{17, 3});
    const auto data = platform::KeyedArchiver::archivedDataWithRootObject(item);
    const auto read = platform::KeyedUnarchiver::unarchiveObjectWithData(
        *data, {{QLNoteChecklistItem::archivedClassName, &QLNoteChecklistItem::initWithCoder}});
    ASSERT_TRUE(read.objectAs<QLNoteChecklistItem>());
    EXPECT_TRUE(read.objectAs<QLNoteChecklistItem>()->isOn());
    EXPECT_EQ(read.objectAs<QLNoteChecklistItem>()->range(), (TextRange{17, 3}));
}

TEST(QLNoteChecklistItemTest, StartsEmptyAndOff)
{
    const QLNoteChecklistItem item;
    EXPECT_FALSE(item.isOn());
    EXPECT_EQ(item.range(), TextRange());
}

} // namespace
