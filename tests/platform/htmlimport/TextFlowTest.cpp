// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

using test::at;
using test::import;
using test::shown;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

struct FlowCase {
    const char* html;
    const char* text;
};

class TextFlowTest : public testing::TestWithParam<FlowCase> {};

TEST_P(TextFlowTest, GivesTheTextThatIsSeen)
{
    EXPECT_EQ(shown(QByteArray(GetParam().html)), s(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    WhiteSpace, TextFlowTest,
    testing::Values(
        FlowCase{"Hello", "Hello\n"}, FlowCase{"  a  b\n\tc  ", "a b c\n"},
        FlowCase{"<b>a </b> <i> b</i>", "a b\n"}, FlowCase{"a<b> b</b><i> c </i>d", "a b c d\n"},
        FlowCase{"<div> a </div> <div> b </div>", "a\nb\n"},
        FlowCase{"<div>a<br/> b</div>", "a\nb\n"}, FlowCase{"<div>a <br/>b</div>", "a\nb\n"},
        FlowCase{"<div>a &#160; b&#160;</div>", "a ~ b~\n"},
        FlowCase{"<div>a &nbsp; b</div>", "a ~ b\n"}, FlowCase{"<div>&nbsp;</div>", "~\n"},
        FlowCase{"<div>a <span> </span> <b> </b>b</div>", "a b\n"},
        FlowCase{"<mark>a</mark> <mark>b</mark>", "a b\n"},
        FlowCase{"<div style=\"white-space:nowrap\">a  b</div>", "a b\n"},
        FlowCase{"<div>\xE2\x80\x83"
                 "a  \xF0\x9F\x98\x80  z</div>",
                 "\xE2\x80\x83"
                 "a \xF0\x9F\x98\x80 z\n"},
        FlowCase{"", ""}, FlowCase{"  \n ", ""}));

INSTANTIATE_TEST_SUITE_P(
    Preformatted, TextFlowTest,
    testing::Values(FlowCase{"<pre>a  b\n  c</pre>", "a  b\n  c\n"},
                    FlowCase{"<pre>\na\n</pre>", "a\n"},
                    FlowCase{"<pre>\n\na\n\nb\n</pre>", "\na\n\nb\n"},
                    FlowCase{"<pre>a\tb</pre>", "a>b\n"},
                    FlowCase{"<pre>a <b> b</b></pre>c", "a  b\nc\n"},
                    FlowCase{"x <span style=\"white-space:pre\"> y </span> z", "x  y  z\n"},
                    FlowCase{"<div style=\"white-space:pre-wrap\">a  b</div>", "a  b\n"},
                    FlowCase{"<div style=\"white-space:pre-line\">a  b\n  c</div>", "a b\nc\n"},
                    FlowCase{"<textarea>\na  b\nc</textarea>", "a  b\nc\n"}));

INSTANTIATE_TEST_SUITE_P(
    Blocks, TextFlowTest,
    testing::Values(
        FlowCase{"<div>a</div><div>b</div>", "a\nb\n"},
        FlowCase{"<div><div><div>a</div></div></div><div>b</div>", "a\nb\n"},
        FlowCase{"<div>a</div>b<div>c</div>d", "a\nb\nc\nd\n"}, FlowCase{"a<p>b</p>c", "a\nb\nc\n"},
        FlowCase{"<div></div><p></p><div>a</div>", "a\n"},
        FlowCase{"<span style=\"display:block\">a</span>b", "a\nb\n"},
        FlowCase{"<div style=\"display:inline\">a</div><div style=\"display:inline-block\">b</div>",
                 "ab\n"},
        FlowCase{"<b>a<div>b</div>c</b>", "a\nb\nc\n"},
        FlowCase{"<en-note><div>a</div></en-note>", "a\n"},
        FlowCase{"<dl><dt>a</dt><dd>b</dd></dl>", "a\nb\n"},
        FlowCase{"<details><summary>a</summary>b</details>", "a\nb\n"},
        FlowCase{"<address>a</address><center>b</center><blockquote>c</blockquote>", "a\nb\nc\n"},
        FlowCase{"<fieldset><legend>a</legend>b</fieldset>", "a\nb\n"}));

INSTANTIATE_TEST_SUITE_P(
    Breaks, TextFlowTest,
    testing::Values(FlowCase{"<div><br/></div>", "\n"}, FlowCase{"<div><br></br></div>", "\n"},
                    FlowCase{"<div>a</div><div><br></br></div><div>b</div>", "a\n\nb\n"},
                    FlowCase{"<div>a<br/></div><div>b</div>", "a\nb\n"},
                    FlowCase{"a<br/><div>b</div>", "a\nb\n"}, FlowCase{"a<br/><br/>b", "a\n\nb\n"},
                    FlowCase{"<div><br/><br/></div>", "\n\n"}, FlowCase{"<p>a<br/>b</p>", "a|b\n"},
                    FlowCase{"<p>a<br/></p>b", "a\nb\n"}, FlowCase{"<p><br/></p>b", "\nb\n"},
                    FlowCase{"<p><br/><br/></p>", "|\n"},
                    FlowCase{"<p>a <br/> <b>b</b></p>", "a|b\n"},
                    FlowCase{"<h1>a<br/>b</h1>", "a|b\n"},
                    FlowCase{"<div><b><br/></b></div>x", "\nx\n"}));

INSTANTIATE_TEST_SUITE_P(
    NotText, TextFlowTest,
    testing::Values(
        FlowCase{"<!-- no -->a<!-- no -->b", "ab\n"},
        FlowCase{"a<span style=\"display:none\">no<b>no</b></span>b", "ab\n"},
        FlowCase{"a<div style=\"display:none;--en-chs:x\">no</div>", "a\n"},
        FlowCase{"a<div hidden=\"hidden\">no</div>", "a\n"},
        FlowCase{"a<script>no()</script><style>p {}</style>b", "ab\n"},
        FlowCase{"a<template>no</template>", "a\n"},
        FlowCase{"a<ul style=\"visibility:hidden\"><li>no</li></ul>b", "a\nb\n"},
        FlowCase{
            "a<div style=\"visibility:hidden\">no<span style=\"visibility:visible\">b</span></div>",
            "a\nb\n"}));

INSTANTIATE_TEST_SUITE_P(
    Inline, TextFlowTest,
    testing::Values(FlowCase{"<q>a <q>b</q></q>", "\u201Ca \u2018b\u2019\u201D\n"},
                    FlowCase{"<abbr title=\"no\">a</abbr>", "a\n"},
                    FlowCase{"<unknown>a</unknown>b", "ab\n"},
                    FlowCase{"<bdo dir=\"rtl\">abc</bdo>", "\u202E"
                                                           "abc\u202C\n"},
                    FlowCase{"<span style=\"text-transform:uppercase\">stra\xC3\x9F"
                             "e</span>",
                             "STRASSE\n"},
                    FlowCase{"<span style=\"text-transform:lowercase\">ABC</span>", "abc\n"},
                    FlowCase{
                        "<span style=\"text-transform:capitalize\">two words o<b>ne</b></span>",
                        "Two Words One\n"},
                    FlowCase{"&lt;b&gt; &amp; &quot; &copy;", "<b> & \" \u00A9\n"}));

TEST(TextFlowPageTest, HeadAndTitleAreNoText)
{
    EXPECT_EQ(
        shown(import(
            "<!DOCTYPE html><html><head><title>No</title><meta charset=\"x\"/><style>a{}</style>"
            "</head><body><p>Yes</p></body></html>")),
        s("Yes\n"));
}

TEST(TextFlowPageTest, ATitleThatLooksLikeMarkupIsNoText)
{
    for (const char* title : {"a <b> & c", "</p><ul><li>", "<table><tr>", "1 < 2", "a</body>"})
        EXPECT_EQ(shown(import("<html><head><title>" + QByteArray(title) +
                               "</title></head><body><p>Yes</p></body></html>")),
                  s("Yes\n"));
}

TEST(TextFlowPageTest, TextWithoutAnyMarkupIsAParagraph)
{
    EXPECT_EQ(shown(import("Just text & <more")), s("Just text &\n"));
    EXPECT_EQ(shown(import("Just text")), s("Just text\n"));
}

TEST(TextFlowPageTest, AnEmptyPageIsAnEmptyText)
{
    EXPECT_TRUE(import("").isEmpty());
    EXPECT_TRUE(import("<html></html>").isEmpty());
    EXPECT_TRUE(import("   ").isEmpty());
    EXPECT_TRUE(import("<!-- only a comment -->").isEmpty());
}

TEST(TextFlowPageTest, ListsNestInListsOfTheOtherKindEvenWhenThePageIsDamaged)
{
    const QByteArray list = "<ol><li>a</li><ul><li>b</li></ul><li>c</li></ol>";
    EXPECT_EQ(shown(list), s(">1.>a\n>\u25E6>b\n>2.>c\n"));
}

TEST(TextFlowPageTest, BytesThatAreNoUtf8BecomeReplacementCharacters)
{
    EXPECT_EQ(shown(import(QByteArray("<p>a\xFF"
                                      "b\xC3(</p>"))),
              s("a\uFFFDb\uFFFD(\n"));
    EXPECT_EQ(shown(import(QByteArray("<p>a\0b</p>", 10))), s("a\uFFFDb\n"));
    EXPECT_EQ(shown(import(QByteArray("\xEF\xBB\xBF<p>\xED\xA0\x80</p>"))),
              s("\uFFFD\uFFFD\uFFFD\n"));
}

TEST(TextFlowPageTest, ADeclaredEncodingIsNotBelieved)
{
    EXPECT_EQ(shown(import(
                  "<html><head><meta charset=\"iso-8859-1\"></head><body>\xC3\xA9</body></html>")),
              s("\u00E9\n"));
    EXPECT_EQ(
        shown(import(
            "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><html><body>\xC3\xA9</body></html>")),
        s("\u00E9\n"));
}

TEST(TextFlowPageTest, EntitiesOfThePageAreNotExpanded)
{
    const QByteArray page =
        "<!DOCTYPE html [<!ENTITY x \"expanded\">]><html><body><p>a&x;b</p></body></html>";
    EXPECT_FALSE(shown(import(page)).contains(s("expanded</p>")));
    EXPECT_FALSE(shown(import(page)).contains(s("aexpandedb")));
}

TEST(TextFlowPageTest, TheAttachmentCharacterOfThePageIsNoAttachment)
{
    EXPECT_EQ(shown(import("<p>a\xEF\xBF\xBC"
                           "b</p>")),
              s("a\uFFFDb\n"));
}

TEST(TextFlowPageTest, ABoxAloneOnItsLineKeepsItsBlank)
{
    EXPECT_EQ(shown("<div>\u2610 </div><div>\u2611\uFE0E </div><div>x </div>"),
              s("\u2610 \n\u2611\uFE0E \nx\n"));
    // However the line ends.
    EXPECT_EQ(shown("<p>\u2610 <br/>x <br/>\u2611\uFE0E <br/></p>"),
              s("\u2610 |x|\u2611\uFE0E \n"));
    EXPECT_EQ(shown("<ul><li>\u2610 <br/>x</li><li>\u2610 <div>\u2610 </div>y</li></ul>"),
              s("\u2610 |x\n\u2610 |\u2610 |y\n"));
    EXPECT_EQ(shown("<div style=\"white-space:pre-line\">\u2610 \nx \n\u2610 \n</div>"),
              s("\u2610 \nx\n\u2610 \n"));
    EXPECT_EQ(shown("<div>\u2610 x <br/>x\u2610 <br/></div>"), s("\u2610 x\nx\u2610\n"));
}

TEST(TextFlowPageTest, ACollapsedBlankHasTheStyleOfItsPlace)
{
    const auto text = import("<p><u>a </u> b</p>");
    EXPECT_EQ(text.attributesAt(1).underline, platform::LineStyle::Single);
    EXPECT_EQ(at(text, "b").underline, platform::LineStyle::None);
}

TEST(TextFlowPageTest, AParagraphsEndHasItsFontAndNoLink)
{
    const auto text = import("<p><a href=\"x:y\"><b>a</b></a></p>");
    const platform::TextAttributes& end = text.attributesAt(1);
    EXPECT_TRUE(end.font->bold);
    EXPECT_TRUE(end.link.isEmpty());
}

TEST(TextFlowPageTest, TextInsideABreakIsNotLost)
{
    EXPECT_EQ(shown(import("<html><body><div>a<br>b</br>c</div></body></html>")), s("a\nbc\n"));
}

} // namespace
