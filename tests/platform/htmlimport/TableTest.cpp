// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

using platform::Color;
using platform::TextBlock;
using platform::TextLength;
using platform::TextVerticalAlignment;
using test::import;
using test::paragraphAt;
using test::shown;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}
platform::AttributedString page(const QByteArray& body)
{
    return import("<html><body>" + body + "</body></html>");
}
const TextBlock& cellAt(const platform::AttributedString& text, const char* what)
{
    return *paragraphAt(text, what).textBlocks.back();
}
TextBlock x(const QByteArray& body)
{
    return cellAt(page(body), "x");
}

// Row, column, row span and column span of the cell of a letter.
std::array<int, 4> place(const platform::AttributedString& text, const char* what)
{
    const TextBlock& cell = cellAt(text, what);
    return {cell.row, cell.column, cell.rowSpan, cell.columnSpan};
}
using Place = std::array<int, 4>;

TEST(TableTest, EachCellsTextEndsWithANewline)
{
    EXPECT_EQ(shown("<table><tr><td>a</td><td><div>b</div></td></tr><tr><td>c<br/>d</td><td></td></"
                    "tr></table>"),
              s("a\nb\nc\nd\n\n"));
    EXPECT_EQ(shown("x<table><tbody>\n<tr>\n<td>a</td>\n</tr>\n</tbody></table>y"), s("x\na\ny\n"));
    EXPECT_EQ(shown("<table><tr><td><br/></td></tr></table>"), s("\n"));
    EXPECT_EQ(shown("<table></table>a<table><tr></tr></table>"), s("a\n"));
}

TEST(TableTest, CellsKnowTheirPlaces)
{
    const auto text = page("<table><thead><tr><th>a</th><th>b</th></tr></thead><tbody><tr><td>c</"
                           "td><td>d</td></tr></tbody></table>");
    EXPECT_EQ(place(text, "a"), (Place{0, 0, 1, 1}));
    EXPECT_EQ(place(text, "b"), (Place{0, 1, 1, 1}));
    EXPECT_EQ(place(text, "c"), (Place{1, 0, 1, 1}));
    EXPECT_EQ(place(text, "d"), (Place{1, 1, 1, 1}));
    EXPECT_EQ(cellAt(text, "a").table, cellAt(text, "d").table);
    EXPECT_EQ(cellAt(text, "a").table->columns, 2);
    EXPECT_TRUE(test::at(text, "a").font->bold);
    EXPECT_EQ(paragraphAt(text, "a").alignment, platform::TextAlignment::Center);
    EXPECT_FALSE(test::at(text, "c").font->bold);
}

TEST(TableTest, SpansTakeTheirColumnsAndRows)
{
    const auto text = page(
        "<table><tr><td rowspan='2'>a</td><td colspan='2'>b</td></tr><tr><td>c</td><td>d</td></tr>"
        "<tr><td>e</td><td>f</td><td>g</td></tr></table>");
    EXPECT_EQ(place(text, "a"), (Place{0, 0, 2, 1}));
    EXPECT_EQ(place(text, "b"), (Place{0, 1, 1, 2}));
    EXPECT_EQ(place(text, "c"), (Place{1, 1, 1, 1}));
    EXPECT_EQ(place(text, "d"), (Place{1, 2, 1, 1}));
    EXPECT_EQ(place(text, "e"), (Place{2, 0, 1, 1}));
    EXPECT_EQ(place(text, "g"), (Place{2, 2, 1, 1}));
    EXPECT_EQ(cellAt(text, "a").table->columns, 3);
}

TEST(TableTest, SpansEndWithTheTable)
{
    const auto text = page(
        "<table><tr><td colspan='1000'>a</td></tr><tr><td>b</td><td rowspan='999999999'>c</td></tr>"
        "<tr><td rowspan='0'>d</td></tr><tr></tr></table>");
    EXPECT_EQ(cellAt(text, "a").table->columns, 2);
    EXPECT_EQ(place(text, "a"), (Place{0, 0, 1, 2}));
    EXPECT_EQ(place(text, "c"), (Place{1, 1, 3, 1}));
    EXPECT_EQ(place(text, "d"), (Place{2, 0, 2, 1}));
    EXPECT_EQ(place(page("<table><tr><td colspan='-3' rowspan='x'>a</td></tr></table>"), "a"),
              (Place{0, 0, 1, 1}));
}

TEST(TableTest, CellsWithoutRowsAndRowsWithoutTables)
{
    EXPECT_EQ(place(page("<table><td>a</td><td>b</td></table>"), "b"), (Place{0, 1, 1, 1}));
    const auto stray = page("<tr><td>a</td></tr>");
    EXPECT_EQ(shown(stray), s("a\n"));
    EXPECT_TRUE(paragraphAt(stray, "a").textBlocks.empty());
}

TEST(TableTest, NestedTablesLieInTheirCells)
{
    const auto text = page("<table><tr><td>a<table><tr><td>b</td><td>c</td></tr></table>d</"
                           "td><td>e</td></tr></table>");
    EXPECT_EQ(shown(text), s("a\nb\nc\nd\ne\n"));
    const auto& inner = paragraphAt(text, "b").textBlocks;
    ASSERT_EQ(inner.size(), 2U);
    EXPECT_EQ(inner.front(), paragraphAt(text, "a").textBlocks.front());
    EXPECT_EQ(paragraphAt(text, "d").textBlocks, paragraphAt(text, "a").textBlocks);
    EXPECT_NE(inner.back()->table, inner.front()->table);
    EXPECT_EQ(place(text, "c"), (Place{0, 1, 1, 1}));
    EXPECT_EQ(place(text, "e"), (Place{0, 1, 1, 1}));
    EXPECT_EQ(inner.front()->table->columns, 2);
}

TEST(TableTest, Widths)
{
    EXPECT_EQ(x("<table><tr><td width='120'>x</td></tr></table>").width, (TextLength{120}));
    EXPECT_EQ(x("<table><tr><td width='25%'>x</td></tr></table>").width,
              (TextLength{25, TextLength::Unit::Percent}));
    EXPECT_EQ(x("<table><tr><td width='9' style='width:120px'>x</td></tr></table>").width,
              (TextLength{120}));
    EXPECT_EQ(x("<table><tr><td>x</td></tr></table>").width, std::nullopt);
    EXPECT_EQ(x("<table width='376px'><tr><td>x</td></tr></table>").table->width,
              (TextLength{376}));
    EXPECT_EQ(x("<table style='width:50%'><tr><td>x</td></tr></table>").table->width,
              (TextLength{50, TextLength::Unit::Percent}));
    EXPECT_EQ(x("<table><tr><td height='30'>x</td></tr></table>").height, (TextLength{30}));
}

TEST(TableTest, ColumnsGiveTheirWidths)
{
    const auto text = page("<table><colgroup><col style='width:188px;'/><col "
                           "width='20%'/></colgroup><colgroup span='2' width='7'/>"
                           "<tr><td>a</td><td>b</td><td>c</td><td>d</td></tr><tr><td "
                           "width='5'>e</td><td colspan='2'>f</td></tr></table>");
    EXPECT_EQ(cellAt(text, "a").width, (TextLength{188}));
    EXPECT_EQ(cellAt(text, "b").width, (TextLength{20, TextLength::Unit::Percent}));
    EXPECT_EQ(cellAt(text, "c").width, (TextLength{7}));
    EXPECT_EQ(cellAt(text, "d").width, (TextLength{7}));
    EXPECT_EQ(cellAt(text, "e").width, (TextLength{5}));
    EXPECT_EQ(cellAt(text, "f").width, std::nullopt);
    EXPECT_EQ(cellAt(text, "a").table->columns, 4);
}

TEST(TableTest, PaddingAndSpacing)
{
    const TextBlock plain = x("<table><tr><td>x</td></tr></table>");
    EXPECT_EQ(plain.padding, (std::array<double, 4>{1, 1, 1, 1}));
    EXPECT_EQ(plain.margin, (std::array<double, 4>{1, 1, 1, 1}));
    const TextBlock named = x("<table cellpadding='5' cellspacing='6'><tr><td>x</td></tr></table>");
    EXPECT_EQ(named.padding, (std::array<double, 4>{5, 5, 5, 5}));
    EXPECT_EQ(named.margin, (std::array<double, 4>{3, 3, 3, 3}));
    const TextBlock own = x("<table cellpadding='5' style='border-collapse:collapse'><tr><td "
                            "style='padding:10px 2px'>x</td></tr></table>");
    EXPECT_EQ(own.padding, (std::array<double, 4>{2, 10, 2, 10}));
    EXPECT_EQ(own.margin, (std::array<double, 4>{}));
    EXPECT_TRUE(own.table->collapsesBorders);
}

TEST(TableTest, BordersSideBySide)
{
    const TextBlock cell = x("<table><tr><td style='border:1px solid #ccc;border-top:3px dashed "
                             "red;border-left:none'>x</td></tr></table>");
    EXPECT_EQ(cell.borderWidth, (std::array<double, 4>{0, 3, 1, 1}));
    EXPECT_EQ(cell.borderColor[1], (Color{1, 0, 0}));
    EXPECT_EQ(cell.borderColor[2], Color::fromRgb8(204, 204, 204));
    EXPECT_FALSE(cell.borderColor[0]);

    const TextBlock parts =
        x("<table><tr><td "
          "style='border-color:#ccc;border-width:1px;border-style:solid'>x</td></tr></table>");
    EXPECT_EQ(parts.borderWidth, (std::array<double, 4>{1, 1, 1, 1}));
    EXPECT_EQ(parts.borderColor[3], Color::fromRgb8(204, 204, 204));

    const TextBlock text =
        x("<table><tr><td style='border: 1px solid; color:blue'>x</td></tr></table>");
    EXPECT_EQ(text.borderColor[0], (Color{0, 0, 1}));
}

TEST(TableTest, ATableHasABorderOfItsOwn)
{
    const auto text = page("<table style='border:2px solid red;border-left:none'><tr><td>x</td>"
                           "</tr></table>");
    const platform::TextTable& table = *cellAt(text, "x").table;
    EXPECT_EQ(table.borderWidth, (std::array<double, 4>{0, 2, 2, 2}));
    EXPECT_EQ(table.borderColor[1], (Color{1, 0, 0}));
    EXPECT_EQ(cellAt(text, "x").borderWidth, (std::array<double, 4>{}));
    EXPECT_EQ(x("<table><tr><td>x</td></tr></table>").table->borderWidth,
              (std::array<double, 4>{}));
}

TEST(TableTest, ATableMayBeginAndEndTheNote)
{
    const auto text = page("<table><tr><td>a</td></tr></table><div>between</div>"
                           "<table><tr><td>z</td></tr></table>");
    EXPECT_EQ(shown(text), s("a\nbetween\nz\n"));
    EXPECT_TRUE(paragraphAt(text, "between").textBlocks.empty());
    EXPECT_NE(cellAt(text, "a").table, cellAt(text, "z").table);
    const auto alone = page("<table><tr><td>a</td><td>b</td></tr></table>");
    EXPECT_EQ(shown(alone), s("a\nb\n"));
    EXPECT_EQ(cellAt(alone, "b").column, 1);
}

TEST(TableTest, TheBorderAttributeDrawsLinesRoundCells)
{
    EXPECT_EQ(x("<table border='5'><tr><td>x</td></tr></table>").borderWidth,
              (std::array<double, 4>{1, 1, 1, 1}));
    EXPECT_EQ(x("<table border='1' bordercolor='red'><tr><td>x</td></tr></table>").borderColor[0],
              (Color{1, 0, 0}));
    EXPECT_EQ(x("<table border='0'><tr><td>x</td></tr></table>").borderWidth,
              (std::array<double, 4>{}));
    EXPECT_EQ(x("<table border='1'><tr><td style='border:none'>x</td></tr></table>").borderWidth,
              (std::array<double, 4>{}));
}

TEST(TableTest, Backgrounds)
{
    const auto text = page("<span style='background:yellow'><table bgcolor='#00f'><tbody "
                           "style='background:#111'><tr bgcolor='#0f0'>"
                           "<td "
                           "style='background-color:#f00'>a</td><td>b</td></tr><tr><td>c</td></"
                           "tr></tbody></table></span>");
    EXPECT_EQ(cellAt(text, "a").backgroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(cellAt(text, "b").backgroundColor, (Color{0, 1, 0}));
    EXPECT_EQ(cellAt(text, "c").backgroundColor, Color::fromRgb8(17, 17, 17));
    EXPECT_EQ(cellAt(text, "a").table->backgroundColor, (Color{0, 0, 1}));
    EXPECT_FALSE(test::at(text, "a").backgroundColor);
    EXPECT_FALSE(test::at(text, "b").backgroundColor);
}

TEST(TableTest, AlignmentInBothDirections)
{
    const auto text =
        page("<table><tr valign='top'><td align='right'>a</td><td valign='bottom' "
             "style='text-align:center'>b</td></tr>"
             "<tr style='vertical-align:baseline'><td>c</td></tr><tr><td>d</td></tr></table>");
    EXPECT_EQ(paragraphAt(text, "a").alignment, platform::TextAlignment::Right);
    EXPECT_EQ(cellAt(text, "a").verticalAlignment, TextVerticalAlignment::Top);
    EXPECT_EQ(paragraphAt(text, "b").alignment, platform::TextAlignment::Center);
    EXPECT_EQ(cellAt(text, "b").verticalAlignment, TextVerticalAlignment::Bottom);
    EXPECT_EQ(cellAt(text, "c").verticalAlignment, TextVerticalAlignment::Baseline);
    EXPECT_EQ(cellAt(text, "d").verticalAlignment, TextVerticalAlignment::Middle);
}

TEST(TableTest, ACellsParagraphsShareItsBlockAndForgetTheIndentOutside)
{
    const auto text = page("<blockquote><table><tr><td><p>a</p><p "
                           "style='margin-left:5px'>b</p></td></tr></table></blockquote>");
    EXPECT_EQ(paragraphAt(text, "a").textBlocks, paragraphAt(text, "b").textBlocks);
    EXPECT_EQ(paragraphAt(text, "a").headIndent, 0);
    EXPECT_EQ(paragraphAt(text, "b").headIndent, 5);
}

TEST(TableTest, ACaptionIsAParagraphOfItsOwn)
{
    const auto text = page("<table><caption>c</caption><tr><td>a</td></tr></table>");
    EXPECT_EQ(shown(text), s("c\na\n"));
    EXPECT_TRUE(paragraphAt(text, "c").textBlocks.empty());
    EXPECT_EQ(paragraphAt(text, "c").alignment, platform::TextAlignment::Center);
}

TEST(TableTest, AFootersRowsComeLast)
{
    const auto text =
        page("<table><tfoot><tr><td>f</td></tr></tfoot><tbody><tr><td>a</td></tr></tbody></table>");
    EXPECT_EQ(shown(text), s("a\nf\n"));
    EXPECT_EQ(place(text, "f"), (Place{1, 0, 1, 1}));
}

TEST(TableTest, TextOutsideOfCellsIsNotLost)
{
    EXPECT_EQ(shown(page("<table>a<tr>b<td>c</td></tr></table>")), s("a\nb\nc\n"));
}

TEST(TableTest, AWideTableGoesOnInTheNextRow)
{
    QByteArray html = "<table><tr>";
    for (int column = 0; column < 10000; ++column)
        html += "<td colspan='1'>a</td>";
    const auto text = page(html + "<td>z</td></tr></table>");
    EXPECT_EQ(text.string().count(u'a'), 10000);
    EXPECT_EQ(cellAt(text, "z").table->columns, 1000);
    EXPECT_EQ(place(text, "z"), (Place{10, 0, 1, 1}));
}

TEST(TableTest, TablesNestOnlySoDeep)
{
    QByteArray html;
    for (int level = 0; level < 60; ++level)
        html += "<table><tr><td>a";
    const auto text = page(html + "z");
    EXPECT_EQ(text.string().count(u'a'), 60);
    EXPECT_LE(paragraphAt(text, "z").textBlocks.size(), 12U);
}

} // namespace
