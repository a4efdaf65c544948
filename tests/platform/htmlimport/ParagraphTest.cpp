// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

using platform::Color;
using platform::ParagraphStyle;
using platform::TextAlignment;
using platform::TextEdge;
using platform::WritingDirection;
using test::import;
using test::paragraphAt;

ParagraphStyle x(const QByteArray& body)
{
    return paragraphAt(import("<html><body>" + body + "</body></html>"), "x");
}
ParagraphStyle styled(const QByteArray& style)
{
    return x("<div style='" + style + "'>x</div>");
}

TEST(ParagraphTest, APlainBlockHasAPlainStyle)
{
    EXPECT_EQ(x("<div>x</div>"), ParagraphStyle());
    EXPECT_EQ(x("x"), ParagraphStyle());
}

TEST(ParagraphTest, Alignment)
{
    EXPECT_EQ(styled("text-align:left").alignment, TextAlignment::Left);
    EXPECT_EQ(styled("text-align:right").alignment, TextAlignment::Right);
    EXPECT_EQ(styled("text-align:center").alignment, TextAlignment::Center);
    EXPECT_EQ(styled("text-align:justify").alignment, TextAlignment::Justified);
    EXPECT_EQ(styled("text-align:start").alignment, TextAlignment::Natural);
    EXPECT_EQ(styled("text-align:end").alignment, TextAlignment::Right);
    EXPECT_EQ(styled("direction:rtl;text-align:end").alignment, TextAlignment::Left);
    EXPECT_EQ(x("<div align='right'>x</div>").alignment, TextAlignment::Right);
    EXPECT_EQ(x("<p align='middle'>x</p>").alignment, TextAlignment::Center);
    EXPECT_EQ(x("<center><div>x</div></center>").alignment, TextAlignment::Center);
    EXPECT_EQ(x("<div align='right' style='text-align:left'>x</div>").alignment,
              TextAlignment::Left);
    EXPECT_EQ(
        x("<div style='text-align:center'><span style='text-align:left'>x</span></div>").alignment,
        TextAlignment::Center);
}

TEST(ParagraphTest, Direction)
{
    EXPECT_EQ(x("<div dir='rtl'>x</div>").direction, WritingDirection::RightToLeft);
    EXPECT_EQ(x("<div dir='RTL'><p>x</p></div>").direction, WritingDirection::RightToLeft);
    EXPECT_EQ(x("<div dir='ltr'>x</div>").direction, WritingDirection::LeftToRight);
    EXPECT_EQ(x("<div dir='rtl'><div dir='auto'>x</div></div>").direction,
              WritingDirection::Natural);
    EXPECT_EQ(styled("direction:rtl").direction, WritingDirection::RightToLeft);
    EXPECT_EQ(paragraphAt(import("<html dir='rtl'><body>x</body></html>"), "x").direction,
              WritingDirection::RightToLeft);
}

TEST(ParagraphTest, IndentsAddUp)
{
    EXPECT_EQ(styled("margin-left:40px").headIndent, 40);
    EXPECT_EQ(styled("margin-left:40px").firstLineHeadIndent, 40);
    EXPECT_EQ(styled("padding-left:40px").headIndent, 40);
    EXPECT_EQ(styled("margin:1px 2px 3px 4px;padding:0 10px").headIndent, 14);
    EXPECT_EQ(styled("margin:1px 2px 3px 4px;padding:0 10px").tailIndent, -12);
    EXPECT_EQ(
        x("<div style='margin-left:10px'><div style='margin-left:10px'>x</div></div>").headIndent,
        20);
    EXPECT_EQ(x("<blockquote>x</blockquote>").headIndent, 40);
    EXPECT_EQ(x("<blockquote>x</blockquote>").tailIndent, -40);
    EXPECT_EQ(x("<blockquote><blockquote>x</blockquote></blockquote>").headIndent, 80);
    EXPECT_EQ(x("<dl><dd>x</dd></dl>").headIndent, 40);
    EXPECT_EQ(styled("margin-left:-40px").headIndent, 0);
    EXPECT_EQ(styled("margin-left:2em").headIndent, 32);
    EXPECT_EQ(styled("margin-left:10%").headIndent, 0);
    EXPECT_EQ(styled("margin-left:auto").headIndent, 0);
}

TEST(ParagraphTest, FirstLineIndents)
{
    EXPECT_EQ(styled("text-indent:20px").firstLineHeadIndent, 20);
    EXPECT_EQ(styled("text-indent:20px").headIndent, 0);
    EXPECT_EQ(styled("text-indent:-20px;margin-left:30px").firstLineHeadIndent, 10);
    EXPECT_EQ(styled("text-indent:-20px").firstLineHeadIndent, 0);
}

TEST(ParagraphTest, TextFromTheRightIsIndentedFromTheRight)
{
    const ParagraphStyle style = styled("direction:rtl;margin-right:30px;margin-left:10px");
    EXPECT_EQ(style.headIndent, 30);
    EXPECT_EQ(style.tailIndent, -10);
}

TEST(ParagraphTest, LineHeights)
{
    EXPECT_EQ(styled("line-height:1.5").lineHeightMultiple, 1.5);
    EXPECT_EQ(styled("line-height:150%").lineHeightMultiple, 1.5);
    EXPECT_EQ(styled("line-height:1.5em").lineHeightMultiple, 1.5);
    EXPECT_EQ(styled("line-height:20px").minimumLineHeight, 20);
    EXPECT_EQ(styled("line-height:20px").maximumLineHeight, 20);
    EXPECT_EQ(styled("line-height:normal"), ParagraphStyle());
    EXPECT_EQ(styled("line-height:0"), ParagraphStyle());
}

TEST(ParagraphTest, MarginsAreSpacing)
{
    const auto text =
        import("<html><body><p style='margin:0 0 10px 0'>a</p><p style='margin:30px 0 5px'>b</p>"
               "<p style='margin:2px 0'>c</p></body></html>");
    EXPECT_EQ(paragraphAt(text, "a").paragraphSpacing, 10);
    EXPECT_EQ(paragraphAt(text, "a").paragraphSpacingBefore, 0);
    // Adjoining margins collapse: the larger one counts.
    EXPECT_EQ(paragraphAt(text, "b").paragraphSpacingBefore, 20);
    EXPECT_EQ(paragraphAt(text, "b").paragraphSpacing, 5);
    EXPECT_EQ(paragraphAt(text, "c").paragraphSpacingBefore, 0);
}

TEST(ParagraphTest, ParagraphsHaveTheSpaceOfALineBetweenThem)
{
    const auto text = import("<html><body><p>a</p><p>b</p><div>c</div><p>d</p></body></html>");
    EXPECT_EQ(paragraphAt(text, "a").paragraphSpacingBefore, 0);
    EXPECT_EQ(paragraphAt(text, "a").paragraphSpacing, 16);
    EXPECT_EQ(paragraphAt(text, "b").paragraphSpacingBefore, 0);
    EXPECT_EQ(paragraphAt(text, "c").paragraphSpacing, 0);
    EXPECT_EQ(paragraphAt(text, "d").paragraphSpacingBefore, 16);
}

TEST(ParagraphTest, AMarginBelowStandsBelowTheLastLineOnly)
{
    const auto text =
        import("<html><body><div style='margin-bottom:9px'>a<br/>b</div></body></html>");
    EXPECT_EQ(paragraphAt(text, "a").paragraphSpacing, 0);
    EXPECT_EQ(paragraphAt(text, "b").paragraphSpacing, 9);
}

TEST(ParagraphTest, AMarginAtTheTopOfTheTextCountsWhenThePageSetsIt)
{
    EXPECT_EQ(styled("margin-top:7px").paragraphSpacingBefore, 7);
    EXPECT_EQ(x("<p>x</p>").paragraphSpacingBefore, 0);
}

TEST(ParagraphTest, Headings)
{
    const double sizes[] = {32, 24, 18.72, 16, 13.28, 10.72};
    for (int level = 1; level <= 6; ++level) {
        const QByteArray tag = "h" + QByteArray::number(level);
        const auto text =
            import("<html><body><" + tag + ">x</" + tag + "><div>y</div></body></html>");
        EXPECT_EQ(paragraphAt(text, "x").headerLevel, level);
        EXPECT_TRUE(test::at(text, "x").font->bold);
        EXPECT_NEAR(test::at(text, "x").font->size, sizes[level - 1], 0.05);
        EXPECT_EQ(paragraphAt(text, "y").headerLevel, 0);
        EXPECT_FALSE(test::at(text, "y").font->bold);
    }
}

TEST(ParagraphTest, AColouredBoxIsATextBlock)
{
    const ParagraphStyle style =
        styled("background-color:#eee;padding:8px;border:2px solid red;margin-left:5px");
    ASSERT_EQ(style.textBlocks.size(), 1U);
    const platform::TextBlock& box = *style.textBlocks.front();
    EXPECT_FALSE(box.table);
    EXPECT_EQ(box.backgroundColor, Color::fromRgb8(238, 238, 238));
    EXPECT_EQ(box.padding, (std::array<double, 4>{8, 8, 8, 8}));
    EXPECT_EQ(box.borderWidth, (std::array<double, 4>{2, 2, 2, 2}));
    EXPECT_EQ(box.borderColor[0], (Color{1, 0, 0}));
    EXPECT_EQ(box.margin[static_cast<std::size_t>(TextEdge::Left)], 5);
    EXPECT_EQ(style.headIndent, 0);
}

TEST(ParagraphTest, ABoxesParagraphsShareItAndItsColourIsNotTheirs)
{
    const auto text =
        import("<html><body><div "
               "style='background:#eee;padding:4px'><p>a</p><p>b</p></div><p>c</p></body></html>");
    EXPECT_EQ(paragraphAt(text, "a").textBlocks, paragraphAt(text, "b").textBlocks);
    EXPECT_EQ(paragraphAt(text, "a").textBlocks.size(), 1U);
    EXPECT_TRUE(paragraphAt(text, "c").textBlocks.empty());
    EXPECT_FALSE(test::at(text, "a").backgroundColor);
}

TEST(ParagraphTest, AColouredPartOfThePageIsABox)
{
    const auto text = import("<html><body><div style='background:#123456;color:#fff'>"
                             "<div>a</div><ul><li>b</li></ul></div><div>c</div></body></html>");
    ASSERT_EQ(paragraphAt(text, "a").textBlocks.size(), 1U);
    EXPECT_EQ(paragraphAt(text, "a").textBlocks.front()->backgroundColor,
              Color::fromRgb8(0x12, 0x34, 0x56));
    EXPECT_EQ(paragraphAt(text, "a").textBlocks, paragraphAt(text, "b").textBlocks);
    EXPECT_FALSE(test::at(text, "a").backgroundColor);
    EXPECT_TRUE(paragraphAt(text, "c").textBlocks.empty());
    EXPECT_TRUE(x("<div style='background:#fff'><div>x</div></div>").textBlocks.empty());
    EXPECT_TRUE(x("<div style='background:transparent'><div>x</div></div>").textBlocks.empty());
}

TEST(ParagraphTest, APagesColourIsItsOwnUnlessItsTextCouldNotBeReadWithoutIt)
{
    for (const char* page : {"<html><body style='background:#222;color:#eee'>x</body></html>",
                             "<html><body bgcolor='#000000'><div>x</div></body></html>",
                             "<en-note style='background-color:rgb(20,20,60)'>x</en-note>"}) {
        const ParagraphStyle style = paragraphAt(import(page), "x");
        ASSERT_EQ(style.textBlocks.size(), 1U) << page;
        EXPECT_TRUE(style.textBlocks.front()->backgroundColor) << page;
    }
    for (const char* page : {"<html><body style='background:#ffe'>x</body></html>",
                             "<html><body style='background:rgba(0,0,0,0.3)'>x</body></html>"})
        EXPECT_TRUE(paragraphAt(import(page), "x").textBlocks.empty()) << page;
}

TEST(ParagraphTest, ABorderOnOneSideMakesABox)
{
    const ParagraphStyle style = x("<blockquote style='border-left:3px solid #ccc'>x</blockquote>");
    ASSERT_EQ(style.textBlocks.size(), 1U);
    EXPECT_EQ(style.textBlocks.front()->borderWidth, (std::array<double, 4>{3, 0, 0, 0}));
}

TEST(ParagraphTest, NoBorderNoBox)
{
    EXPECT_TRUE(styled("border:none;padding:4px").textBlocks.empty());
    EXPECT_TRUE(styled("border:0 solid red").textBlocks.empty());
    EXPECT_TRUE(styled("border:1px solid transparent").textBlocks.empty());
    EXPECT_TRUE(styled("background:#fff;padding:4px").textBlocks.empty());
    EXPECT_TRUE(x("<table><tr><td>a</td></tr></table><div style='border-width:1px'>x</div>")
                    .textBlocks.empty());
}

} // namespace
