// SPDX-License-Identifier: MIT
#include "platform/rtfd/RichText.h"
#include "platform/rtfd/RtfReader.h"
#include "platform/rtfd/RtfWriter.h"

namespace {

using namespace platform;
using Blocks = std::vector<std::shared_ptr<const TextBlock>>;
using Cell = std::shared_ptr<TextBlock>;

std::shared_ptr<TextTable> table(int columns)
{
    auto made = std::make_shared<TextTable>();
    made->columns = columns;
    return made;
}

Cell cell(const std::shared_ptr<TextTable>& table, int row, int column, int rows = 1, int columns = 1)
{
    auto made = std::make_shared<TextBlock>();
    made->table = table;
    made->row = row;
    made->column = column;
    made->rowSpan = rows;
    made->columnSpan = columns;
    made->verticalAlignment = TextVerticalAlignment::Top;
    return made;
}

AttributedString in(const Blocks& blocks, const char* text)
{
    ParagraphStyle style;
    style.defaultTabInterval = 36;
    style.textBlocks = blocks;
    return test::inStyle(QString::fromUtf8(text), style);
}

AttributedString joined(const std::vector<AttributedString>& parts)
{
    AttributedString text;
    for (const AttributedString& part : parts)
        text.append(part);
    return text;
}

constexpr char plainCell[] =
    "\\clvertalt \\clshdrawnil \\clbrdrt\\brdrnil \\clbrdrl\\brdrnil \\clbrdrb\\brdrnil "
    "\\clbrdrr\\brdrnil \\clpadl0 \\clpadr0 \\gaph\\cellx";
constexpr char cellFormat[] = "\\pard\\intbl\\itap1\\pardeftab720\\pardirnatural\\partightenfactor0\n";

void expectSame(const AttributedString& text)
{
    const QByteArray first = rtfFromAttributedString(text);
    const AttributedString read = test::readRtf(first);
    EXPECT_EQ(test::described(read), test::described(text));
    EXPECT_EQ(rtfFromAttributedString(read), first);
}

TEST(RtfTablesTest, WritesARowAsCocoaDoes)
{
    const auto owner = table(2);
    owner->collapsesBorders = true;
    const AttributedString text = joined({in({cell(owner, 0, 0)}, "a\n"), in({cell(owner, 0, 1)}, "b\n")});
    EXPECT_EQ(
        test::body(rtfFromAttributedString(text)),
        QByteArray("\n\\itap1\\trowd \\taflags1 \\trgaph108\\trleft-108 \\trbrdrt\\brdrnil \\trbrdrl\\brdrnil "
                   "\\trbrdrt\\brdrnil \\trbrdrr\\brdrnil \n")
            + plainCell + "4320\n" + plainCell + "8640\n" + cellFormat + "\n\\f0\\fs24 \\cf0 a\\cell \n"
            + cellFormat + "\\cf0 b\\cell \\lastrow\\row\n}");
}

TEST(RtfTablesTest, TellsTheFirstAndTheLastRow)
{
    const auto owner = table(1);
    const QByteArray rtf = rtfFromAttributedString(joined(
        {in({cell(owner, 0, 0)}, "a\n"), in({cell(owner, 1, 0)}, "b\n"), in({cell(owner, 2, 0)}, "c\n")}));
    EXPECT_EQ(rtf.count("\\lastrow"), 1);
    EXPECT_EQ(rtf.count("\\trleft-108 \\trbrdrt\\brdrnil \\trbrdrl\\brdrnil \\trbrdrr\\brdrnil \n"), 1);
    EXPECT_EQ(rtf.count("\\trleft-108 \\trbrdrl\\brdrnil \\trbrdrr\\brdrnil \n"), 1);
    EXPECT_EQ(rtf.count("\\trleft-108 \\trbrdrl\\brdrnil \\trbrdrt\\brdrnil \\trbrdrr\\brdrnil \n"), 1);
}

TEST(RtfTablesTest, ATablesBorderStandsAtTheRowsThatItTouches)
{
    const auto framed = table(1);
    framed->borderWidth = {1, 2, 0, 3}; // left, top, right, bottom
    framed->borderColor[static_cast<std::size_t>(TextEdge::Top)] = Color::fromRgb8(255, 0, 0);
    const AttributedString text =
        joined({in({cell(framed, 0, 0)}, "a\n"), in({cell(framed, 1, 0)}, "b\n"),
                in({cell(framed, 2, 0)}, "c\n"), in({}, "text\n")});
    const QByteArray rtf = rtfFromAttributedString(text);
    EXPECT_EQ(rtf.count("\\trbrdrt\\brdrs\\brdrw40\\brdrcf2 \\trbrdrl\\brdrs\\brdrw20\\brdrcf0 "
                        "\\trbrdrr\\brdrnil \n"),
              1);
    EXPECT_EQ(rtf.count(" \\trbrdrl\\brdrs\\brdrw20\\brdrcf0 \\trbrdrr\\brdrnil \n"), 2);
    EXPECT_EQ(rtf.count("\\trbrdrb\\brdrs\\brdrw60\\brdrcf0 \\trbrdrr\\brdrnil \n"), 1);
    expectSame(text);
}

TEST(RtfTablesTest, WritesWhatACellHas)
{
    const auto owner = table(1);
    owner->backgroundColor = Color{1, 0, 0};
    owner->width = TextLength{400, TextLength::Unit::Points};
    const Cell only = cell(owner, 0, 0);
    only->verticalAlignment = TextVerticalAlignment::Middle;
    only->backgroundColor = Color{0, 1, 0};
    only->width = TextLength{50, TextLength::Unit::Percent};
    only->height = TextLength{14, TextLength::Unit::Points};
    only->margin = {1, 2, 3, 4}; // left, top, right, bottom
    only->padding = {5, 6, 7, 0};
    only->borderWidth = {1, 0, 0.5, 0};
    only->borderColor[0] = Color{0, 0, 1};
    const QByteArray rtf = rtfFromAttributedString(in({only}, "a\n"));
    EXPECT_TRUE(rtf.contains("\\trleft-108 \\trwWidth8000\\trftsWidth3 \\trcbpat2 \\trbrdrt"));
    EXPECT_TRUE(rtf.contains(
        "\n\\clvertalc \\clcbpat3 \\clwWidth2500\\clftsWidth2 \\clheight280 \\clmart40 \\clmarl20 "
        "\\clmarb80 \\clmarr60 \\clbrdrt\\brdrnil \\clbrdrl\\brdrs\\brdrw20\\brdrcf4 \\clbrdrb\\brdrnil "
        "\\clbrdrr\\brdrs\\brdrw10\\brdrcf0 \\clpadt120 \\clpadl100 \\clpadr140 \\gaph\\cellx8640\n"))
        << rtf.constData();
    expectSame(in({only}, "a\n"));
}

TEST(RtfTablesTest, ACellHoldsSeveralParagraphs)
{
    const auto owner = table(1);
    const AttributedString text = in({cell(owner, 0, 0)}, "a\nb\n");
    EXPECT_TRUE(rtfFromAttributedString(text).contains("a\\\nb\\cell \\lastrow\\row\n"));
    expectSame(text);
}

TEST(RtfTablesTest, EveryMergedColumnHasItsEmptyCell)
{
    const auto owner = table(3);
    const AttributedString text = joined({in({cell(owner, 0, 0, 1, 3)}, "wide\n"),
                                          in({cell(owner, 1, 0)}, "a\n"),
                                          in({cell(owner, 1, 1, 1, 2)}, "b\n")});
    const QByteArray rtf = rtfFromAttributedString(text);
    EXPECT_TRUE(rtf.contains("wide\\cell \n\\pard\\intbl\\itap1\\cell \n\\pard\\intbl\\itap1\\cell \\row\n"));
    EXPECT_TRUE(rtf.contains("b\\cell \n\\pard\\intbl\\itap1\\cell \\lastrow\\row\n"));
    EXPECT_EQ(rtf.count("\\clmgf "), 2);
    EXPECT_EQ(rtf.count("\\clmrg "), 3);
    expectSame(text);
}

TEST(RtfTablesTest, EveryMergedRowHasItsEmptyCell)
{
    const auto owner = table(2);
    const AttributedString text = joined({in({cell(owner, 0, 0, 3)}, "tall\n"), in({cell(owner, 0, 1)}, "a\n"),
                                          in({cell(owner, 1, 1)}, "b\n"), in({cell(owner, 2, 1)}, "c\n")});
    const QByteArray rtf = rtfFromAttributedString(text);
    EXPECT_EQ(rtf.count("\\clvmgf "), 1);
    EXPECT_EQ(rtf.count("\\clvmrg "), 2);
    EXPECT_EQ(rtf.count("\\pard\\intbl\\itap1\\cell \n"), 2);
    expectSame(text);
}

TEST(RtfTablesTest, ACellMayReachInBothDirections)
{
    const auto owner = table(3);
    expectSame(joined({in({cell(owner, 0, 0)}, "a\n"), in({cell(owner, 0, 1, 2, 2)}, "large\n"),
                       in({cell(owner, 1, 0)}, "b\n"), in({cell(owner, 2, 0)}, "c\n"),
                       in({cell(owner, 2, 1)}, "d\n"), in({cell(owner, 2, 2)}, "e\n")}));
}

TEST(RtfTablesTest, AColumnWithoutACellStaysWithout)
{
    const auto owner = table(3);
    expectSame(joined(
        {in({cell(owner, 0, 1)}, "a\n"), in({cell(owner, 1, 0)}, "b\n"), in({cell(owner, 1, 2)}, "c\n")}));
}

TEST(RtfTablesTest, InnerTablesAreDefinedBeforeTheirCells)
{
    const auto outer = table(1);
    const auto inner = table(2);
    const Cell holder = cell(outer, 0, 0);
    const AttributedString text = joined({in({holder}, "before\n"), in({holder, cell(inner, 0, 0)}, "a\n"),
                                          in({holder, cell(inner, 0, 1)}, "b\n"), in({holder}, "after\n"),
                                          in({}, "text\n")});
    const QByteArray rtf = rtfFromAttributedString(text);
    EXPECT_TRUE(rtf.contains("before\\\n\n\\itap2\\trowd "));
    EXPECT_TRUE(rtf.contains(
        "\\pard\\intbl\\itap2\\pardeftab720\\pardirnatural\\partightenfactor0\n\\cf0 a\\nestcell \n"));
    EXPECT_TRUE(rtf.contains("b\\nestcell {\\*\\nesttableprops\\trowd \\taflags0 "));
    EXPECT_TRUE(rtf.contains("\\cellx8640\n}\\lastrow\\nestrow\n\\pard\\intbl\\itap1\\"));
    EXPECT_TRUE(rtf.contains("after\\cell \\lastrow\\row\n\\pard\\pardeftab720"));
    expectSame(text);
}

TEST(RtfTablesTest, AnAttachmentWithoutAStyleStandsInTheCellOfItsParagraph)
{
    const auto owner = table(2);
    const auto attachment = [] {
        return AttributedString::withAttachment(std::make_shared<TextAttachment>(FileWrapper::regularFile("%PDF", QStringLiteral("a.pdf"))));
    };
    const AttributedString text = joined({attachment(), attachment(), in({cell(owner, 0, 0)}, "\n"),
                                          in({cell(owner, 0, 1)}, "b\n"), attachment()});
    const auto name = [](const TextAttachment&) { return QStringLiteral("a.pdf"); };
    const QByteArray rtf = rtfWithAttachments(text, {}, name);
    const AttributedString read = test::readRtf(rtf);
    ASSERT_EQ(read.string(), text.string());
    for (const qsizetype position : {0, 1, 2}) {
        ASSERT_TRUE(read.attributesAt(position).paragraphStyle) << position;
        ASSERT_EQ(read.attributesAt(position).paragraphStyle->textBlocks.size(), 1u) << position;
        EXPECT_EQ(read.attributesAt(position).paragraphStyle->textBlocks[0]->column, 0) << position;
    }
    EXPECT_EQ(read.attributesAt(3).paragraphStyle->textBlocks[0]->column, 1);
    EXPECT_EQ(rtf.count("\\trowd"), 1);
    // None in its paragraph says anything.
    EXPECT_FALSE(read.attributesAt(5).paragraphStyle);
}

TEST(RtfTablesTest, ACellThatEndsWithATableTakesNoParagraphOnTheWay)
{
    const auto outer = table(2);
    const Cell holder = cell(outer, 0, 0);
    const AttributedString text = joined(
        {in({holder, cell(table(1), 0, 0)}, "inner\n"), in({cell(outer, 0, 1)}, "b\n")});
    EXPECT_TRUE(rtfFromAttributedString(text).contains("\\nestrow\n\\pard\\intbl\\itap1\\cell \n"));
    expectSame(text);
}

TEST(RtfTablesTest, TablesThatTouchStayApart)
{
    const AttributedString text = joined(
        {in({cell(table(1), 0, 0)}, "a\n"), in({cell(table(1), 0, 0)}, "b\n")});
    EXPECT_EQ(rtfFromAttributedString(text).count("\\lastrow"), 2);
    expectSame(text);
}

TEST(RtfTablesTest, APlainBoxIsATableOfOneCell)
{
    auto box = std::make_shared<TextBlock>();
    box->backgroundColor = Color::fromRgb8(240, 240, 240);
    box->padding.fill(8);
    AttributedString text = in({box}, "int main()\n{}\n");
    text.append(in({}, "text\n"));
    const QByteArray rtf = rtfFromAttributedString(text);
    EXPECT_TRUE(rtf.contains("\\itap1\\trowd \\taflags0 "));
    EXPECT_TRUE(rtf.contains("int main()\\\n\\{\\}\\cell \\lastrow\\row\n\\pard\\pardeftab720"));
    const AttributedString read = test::readRtf(rtf);
    const auto& blocks = read.attributesAt(0).paragraphStyle->textBlocks;
    ASSERT_EQ(blocks.size(), 1U);
    EXPECT_EQ(blocks[0]->padding, box->padding);
    EXPECT_EQ(blocks[0]->backgroundColor, box->backgroundColor);
    EXPECT_TRUE(read.attributesAt(read.length() - 1).paragraphStyle->textBlocks.empty());
    EXPECT_EQ(rtfFromAttributedString(read), rtf);
}

TEST(RtfTablesTest, ATableMayBeCutOffInAnyCell)
{
    const auto owner = table(2);
    const AttributedString text = joined({in({cell(owner, 0, 0)}, "a\n"), in({cell(owner, 0, 1)}, "b")});
    EXPECT_TRUE(rtfFromAttributedString(text).endsWith("b\\cell \\lastrow\\row\n}"));
}

TEST(RtfTablesTest, AWrongGridIsWrittenInTheOrderOfItsText)
{
    const auto owner = table(2);
    const Cell first = cell(owner, 5, 7);
    const AttributedString text = joined({in({first}, "a\n"), in({cell(owner, 5, 1)}, "b\n"),
                                          in({first}, "c\n"), in({cell(owner, -3, -2, 0, 0)}, "d\n"),
                                          in({cell(owner, 9, 1 << 30, 1 << 30, 1 << 30)}, "e\n")});
    const AttributedString read = test::readRtf(rtfFromAttributedString(text));
    EXPECT_EQ(read.string(), text.string());
    const QByteArray again = rtfFromAttributedString(read);
    EXPECT_EQ(rtfFromAttributedString(test::readRtf(again)), again);
}

TEST(RtfTablesTest, ATableOfMillionsOfColumnsStaysSmall)
{
    const auto owner = table(2000000000);
    AttributedString text;
    for (int row = 0; row < 5000; ++row)
        text.append(in({cell(owner, row, 0)}, "a\n"));
    EXPECT_LT(rtfFromAttributedString(text).size(), 40000000);
}

TEST(RtfTablesTest, ReadsARowThatIsDefinedBehindItsCells)
{
    const AttributedString read = test::readRtf(
        "{\\rtf1\\ansi\\pard\\intbl a\\cell "
        "b\\cell\\trowd\\clvertalb\\cellx2000\\clvertalc\\cellx5000\\row\\pard end\\par}");
    EXPECT_EQ(read.string(), QStringLiteral("a\nb\nend\n"));
    const auto& second = read.attributesAt(2).paragraphStyle->textBlocks.at(0);
    EXPECT_EQ(second->column, 1);
    EXPECT_EQ(second->verticalAlignment, TextVerticalAlignment::Middle);
    EXPECT_EQ(second->width, (TextLength{150, TextLength::Unit::Points}));
    EXPECT_FALSE(read.attributesAt(4).paragraphStyle);
}

TEST(RtfTablesTest, ReadsInnerTablesInTheFormOfWord)
{
    const AttributedString read = test::readRtf(
        "{\\rtf1\\ansi\\trowd\\cellx5000\\pard\\intbl before\\par\\pard\\intbl\\itap2 a\\nestcell b\\nestcell"
        "{\\*\\nesttableprops\\trowd\\cellx2000\\cellx4000\\nestrow}{\\nonesttables\\par}"
        "\\pard\\intbl\\itap2 c\\nestcell "
        "d\\nestcell{\\*\\nesttableprops\\trowd\\cellx2000\\cellx4000\\nestrow}"
        "{\\nonesttables\\par}\\pard\\intbl after\\cell\\row\\pard end\\par}");
    EXPECT_EQ(read.string(), QStringLiteral("before\na\nb\nc\nd\nafter\nend\n"));
    const auto blocksOf = [&](const char* word) {
        return read.attributesAt(read.string().indexOf(QLatin1String(word))).paragraphStyle->textBlocks;
    };
    ASSERT_EQ(blocksOf("d").size(), 2U);
    EXPECT_EQ(blocksOf("d")[0], blocksOf("after")[0]);
    EXPECT_EQ(blocksOf("d")[1]->row, 1);
    EXPECT_EQ(blocksOf("d")[1]->column, 1);
    EXPECT_EQ(blocksOf("d")[1]->table, blocksOf("a\n")[1]->table);
    EXPECT_EQ(blocksOf("d")[1]->table->columns, 2);
}

} // namespace
