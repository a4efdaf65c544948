// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

using platform::ParagraphStyle;
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

struct ListCase {
    const char* html;
    const char* text;
};

class ListTextTest : public testing::TestWithParam<ListCase> {};

TEST_P(ListTextTest, GivesTheMarkersThatAreSeen)
{
    EXPECT_EQ(shown(QByteArray(GetParam().html)), s(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Markers, ListTextTest,
    testing::Values(
        ListCase{"<ul><li>a</li><li>b</li></ul>", ">\u2022>a\n>\u2022>b\n"},
        ListCase{"<ul>\n<li>\n<div>a</div>\n</li>\n</ul>\nb", ">\u2022>a\nb\n"},
        ListCase{"x<ol><li>a</li><li>b</li></ol>y", "x\n>1.>a\n>2.>b\ny\n"},
        ListCase{"<ol start=\"3\"><li>a</li><li>b</li></ol>", ">3.>a\n>4.>b\n"},
        ListCase{"<ol start=\"-1\"><li>a</li><li>b</li></ol>", ">-1.>a\n>0.>b\n"},
        ListCase{"<ol><li>a</li><li value=\"7\">b</li><li>c</li></ol>", ">1.>a\n>7.>b\n>8.>c\n"},
        ListCase{"<ol reversed=\"reversed\"><li>a</li><li>b</li></ol>", ">2.>a\n>1.>b\n"},
        ListCase{"<ol reversed=\"reversed\" start=\"9\"><li>a</li><li>b</li></ol>",
                 ">9.>a\n>8.>b\n"},
        ListCase{"<ol type=\"a\"><li>a</li><li>b</li></ol>", ">a.>a\n>b.>b\n"},
        ListCase{"<ol type=\"A\" start=\"27\"><li>a</li></ol>", ">AA.>a\n"},
        ListCase{"<ol type=\"i\"><li>a</li></ol><ol type=\"I\" start=\"4\"><li>b</li></ol>",
                 ">i.>a\n>IV.>b\n"},
        ListCase{"<ol style=\"list-style-type:lower-latin\"><li>a</li></ol>", ">a.>a\n"},
        ListCase{"<ol style=\"list-style:upper-roman inside\"><li>a</li></ol>", ">I.>a\n"},
        ListCase{"<ul type=\"square\"><li>a</li></ul>", ">\u25AA>a\n"},
        ListCase{"<ul style=\"list-style-type:circle\"><li>a</li></ul>", ">\u25E6>a\n"},
        ListCase{"<ul style=\"list-style-type:'-'\"><li>a</li></ul>", ">->a\n"},
        ListCase{"<ul style=\"list-style-type:none\"><li>a</li></ul>", "a\n"},
        ListCase{"<ul><li>a</li><li style=\"list-style:none\">b</li><li>c</li></ul>",
                 ">\u2022>a\nb\n>\u2022>c\n"},
        ListCase{"<ol><li>a</li><li type=\"a\">b</li></ol>", ">1.>a\n>b.>b\n"},
        ListCase{"<ul style=\"--en-checked:true\"><li style=\"--en-checked:false;\">a</li></ul>",
                 ">\u2022>a\n"}));

INSTANTIATE_TEST_SUITE_P(
    Nesting, ListTextTest,
    testing::Values(
        ListCase{"<ul><li>a<ul><li>b<ul><li>c</li></ul></li></ul></li><li>d</li></ul>",
                 ">\u2022>a\n>\u25E6>b\n>\u25AA>c\n>\u2022>d\n"},
        ListCase{"<ul><li>a</li><ul><li>b</li></ul><li>c</li></ul>",
                 ">\u2022>a\n>\u25E6>b\n>\u2022>c\n"},
        ListCase{"<ol><li>a</li><ol><li>b</li></ol><li>c</li></ol>", ">1.>a\n>1.>b\n>2.>c\n"},
        ListCase{"<ul><li><ul><li>a</li></ul></li></ul>", ">\u25E6>a\n"},
        ListCase{"<ol><li><ul><li>a</li></ul></li><li>b</li></ol>", ">1.>\n>\u25E6>a\n>2.>b\n"},
        ListCase{"<ul><li>a<ol><li>b</li></ol>c</li></ul>", ">\u2022>a\n>1.>b\nc\n"}));

INSTANTIATE_TEST_SUITE_P(
    Items, ListTextTest,
    testing::Values(
        ListCase{"<ul><li></li><li>a</li></ul>", ">\u2022>\n>\u2022>a\n"},
        ListCase{"<ul><li><br/></li><li><div><br/></div></li></ul>", ">\u2022>\n>\u2022>\n"},
        ListCase{"<ul><li><div>a</div><div>b</div></li><li>c</li></ul>",
                 ">\u2022>a|b\n>\u2022>c\n"},
        ListCase{"<ul><li>a<p>b</p>c</li></ul>", ">\u2022>a|b|c\n"},
        ListCase{"<ul><li><div>a</div><div><br/></div><div>b</div></li></ul>", ">\u2022>a||b\n"},
        ListCase{"<ul><li>a<br/>b</li></ul>", ">\u2022>a|b\n"},
        ListCase{"<ul><li>a<br/></li></ul>", ">\u2022>a\n"},
        ListCase{"<ul><li><h2>a</h2>b</li></ul>", ">\u2022>a\nb\n"},
        ListCase{"<ul><li><pre>a\nb</pre></li></ul>", ">\u2022>a|b\n"},
        ListCase{"<ul><li>  a  </li></ul>", ">\u2022>a\n"},
        ListCase{"<ul><li><b> a</b></li></ul>", ">\u2022>a\n"},
        ListCase{"<li>a</li><li>b</li>c", ">\u2022>a\n>\u2022>b\nc\n"},
        ListCase{"<ul>a<li>b</li></ul>", "a\n>\u2022>b\n"},
        ListCase{"<menu><li>a</li></menu>", ">\u2022>a\n"},
        ListCase{"<ul><li style=\"display:inline-block\">a</li> <li "
                 "style=\"display:inline\">b</li></ul>",
                 "a b\n"}));

TEST(ListTest, StylesAreThoseOfThePlatform)
{
    const auto text = page("<ul><li>a<ol><li>b<ul><li>c</li></ul></li></ol></li></ul>");
    for (const auto& [letter, level] : {std::pair("a", 1), {"b", 2}, {"c", 3}}) {
        const ParagraphStyle& style = paragraphAt(text, letter);
        EXPECT_EQ(style.textLists.size(), static_cast<std::size_t>(level));
        EXPECT_EQ(style.headIndent, 36 * level);
        EXPECT_EQ(style.firstLineHeadIndent, 0);
        const std::vector<platform::TextTab> tabs = {
            {platform::TextAlignment::Left, 36.0 * level - 25},
            {platform::TextAlignment::Left, 36.0 * level}};
        EXPECT_EQ(style.tabStops, tabs);
    }
    EXPECT_EQ(paragraphAt(text, "c").textLists[0]->markerFormat, s("{disc}"));
    EXPECT_EQ(paragraphAt(text, "c").textLists[1]->markerFormat, s("{decimal}."));
    EXPECT_EQ(paragraphAt(text, "c").textLists[2]->markerFormat, s("{square}"));
}

TEST(ListTest, ItemsOfAListShareItAndListsDoNot)
{
    const auto text = page("<ol start='3'><li>a</li><li>b</li></ol><ol><li>c</li></ol>");
    EXPECT_EQ(paragraphAt(text, "a").textLists, paragraphAt(text, "b").textLists);
    EXPECT_NE(paragraphAt(text, "a").textLists, paragraphAt(text, "c").textLists);
    EXPECT_EQ(paragraphAt(text, "a").textLists[0]->startingItemNumber, 3);
    EXPECT_EQ(text.attributesAt(0).paragraphStyle->textLists, paragraphAt(text, "a").textLists);
}

TEST(ListTest, AParagraphAfterANestedListIsTheItemsWithoutAMarker)
{
    const auto text = page("<ul><li>a<ul><li>b</li></ul>c</li></ul>");
    const ParagraphStyle& style = paragraphAt(text, "c");
    EXPECT_EQ(style.textLists.size(), 1U);
    EXPECT_EQ(style.firstLineHeadIndent, 36);
    EXPECT_EQ(style.headIndent, 36);
    EXPECT_TRUE(style.tabStops.empty());
}

TEST(ListTest, AParagraphOfAnItemThatLiesDifferentlyIsOneOfItsOwn)
{
    const auto text = page("<ul><li>a<p style='text-align:right'>b</p>c</li>"
                           "<li><p style='text-align:center'>d</p></li></ul>");
    EXPECT_EQ(shown(text), s(">\u2022>a\nb\nc\n>\u2022>d\n"));
    EXPECT_EQ(paragraphAt(text, "b").alignment, platform::TextAlignment::Right);
    EXPECT_EQ(paragraphAt(text, "b").textLists, paragraphAt(text, "a").textLists);
    EXPECT_EQ(paragraphAt(text, "b").firstLineHeadIndent, 36);
    EXPECT_EQ(paragraphAt(text, "c").alignment, platform::TextAlignment::Natural);
    EXPECT_EQ(paragraphAt(text, "d").alignment, platform::TextAlignment::Center);
}

TEST(ListTest, ListsInIndentedBlocksAreIndentedWithThem)
{
    const ParagraphStyle style =
        paragraphAt(page("<blockquote><ul><li>x</li></ul></blockquote>"), "x");
    EXPECT_EQ(style.headIndent, 76);
    EXPECT_EQ(style.firstLineHeadIndent, 40);
    EXPECT_EQ(style.tabStops.front().location, 51);
}

TEST(ListTest, TheMarkerHasTheItemsFontWithoutPartsOfItsText)
{
    const auto text =
        page("<ul><li style='font-size:20px;color:red'><u><a href='x:y'>a</a></u></li></ul>");
    const platform::TextAttributes& marker = text.attributesAt(1);
    EXPECT_EQ(marker.font->size, 20);
    EXPECT_EQ(marker.foregroundColor, (platform::Color{1, 0, 0}));
    EXPECT_EQ(marker.underline, platform::LineStyle::None);
    EXPECT_TRUE(marker.link.isEmpty());
}

TEST(ListTest, AListWithoutMarkersKeepsItsIndent)
{
    const ParagraphStyle style =
        paragraphAt(page("<ul style='list-style:none'><li>x</li></ul>"), "x");
    ASSERT_EQ(style.textLists.size(), 1U);
    EXPECT_EQ(style.textLists.front()->markerFormat, QString());
    EXPECT_EQ(style.headIndent, 36);
    EXPECT_EQ(style.firstLineHeadIndent, 36);
}

TEST(ListTest, ListsInACellAreTheCellsOwn)
{
    const auto text =
        page("<ul><li>a<table><tr><td><ul><li>b</li></ul></td></tr></table></li></ul>");
    EXPECT_EQ(paragraphAt(text, "b").textLists.size(), 1U);
    EXPECT_EQ(paragraphAt(text, "b").headIndent, 36);
    EXPECT_EQ(paragraphAt(text, "b").textLists.front()->markerFormat, s("{disc}"));
}

TEST(ListTest, NestingHasAnEndButTheTextHasNot)
{
    QByteArray html;
    for (int level = 0; level < 120; ++level)
        html += "<ul><li>a";
    const auto text = page(html + "z");
    EXPECT_EQ(text.string().count(u'a'), 120);
    EXPECT_EQ(paragraphAt(text, "z").textLists.size(), 50U);
}

} // namespace
