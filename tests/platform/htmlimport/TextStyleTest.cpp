// SPDX-License-Identifier: MIT
#include "platform/htmlimport/HtmlImportSupport.h"

namespace {

using platform::Color;
using platform::LineStyle;
using platform::TextAttributes;

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

// The attributes of the letter x in a body.
TextAttributes x(const QByteArray& body)
{
    return test::at(test::import("<html><body>" + body + "</body></html>"), "x");
}
TextAttributes styled(const QByteArray& style)
{
    return x("<span style='" + style + "'>x</span>");
}

TEST(TextStyleTest, PlainTextHasTheStandardFontAndNothingElse)
{
    TextAttributes attributes = x("x");
    EXPECT_EQ(*attributes.font, (platform::Font{s("Helvetica"), 16}));
    attributes.font.reset();
    attributes.paragraphStyle.reset();
    EXPECT_EQ(attributes, TextAttributes());
}

TEST(TextStyleTest, AStandardFontThatNobodyHasIsHelvetica)
{
    platform::HtmlImportOptions options = test::htmlOptions();
    options.standardFontFamily = s("No Such Font");
    options.defaultFontSize = 0;
    EXPECT_EQ(*test::at(test::import("x", options), "x").font,
              (platform::Font{s("Helvetica"), 12}));
    options.standardFontFamily = s("Menlo");
    EXPECT_TRUE(test::at(test::import("x", options), "x").font->monospaced);
}

TEST(TextStyleTest, ElementsGiveTraits)
{
    for (const char* tag : {"b", "strong"})
        EXPECT_TRUE(x("<" + QByteArray(tag) + ">x</" + tag + ">").font->bold) << tag;
    for (const char* tag : {"i", "em", "cite", "dfn", "var", "address"})
        EXPECT_TRUE(x("<" + QByteArray(tag) + ">x</" + tag + ">").font->italic) << tag;
    for (const char* tag : {"u", "ins"})
        EXPECT_EQ(x("<" + QByteArray(tag) + ">x</" + tag + ">").underline, LineStyle::Single)
            << tag;
    for (const char* tag : {"s", "strike", "del"})
        EXPECT_EQ(x("<" + QByteArray(tag) + ">x</" + tag + ">").strikethrough, LineStyle::Single)
            << tag;
    for (const char* tag : {"code", "kbd", "samp", "tt", "pre"}) {
        const auto font = *x("<" + QByteArray(tag) + ">x</" + tag + ">").font;
        EXPECT_EQ(font.family, s("Menlo")) << tag;
        EXPECT_TRUE(font.monospaced) << tag;
    }
    EXPECT_EQ(x("<mark>x</mark>").backgroundColor, (Color{1, 1, 0}));
}

TEST(TextStyleTest, StylesNest)
{
    const TextAttributes attributes = x("<b><i><u><s>x</s></u></i></b>");
    EXPECT_TRUE(attributes.font->bold);
    EXPECT_TRUE(attributes.font->italic);
    EXPECT_EQ(attributes.underline, LineStyle::Single);
    EXPECT_EQ(attributes.strikethrough, LineStyle::Single);
    EXPECT_FALSE(x("<b><span style='font-weight:normal'>x</span></b>").font->bold);
    EXPECT_FALSE(x("<i><span style='font-style:normal'>x</span></i>").font->italic);
}

TEST(TextStyleTest, Weights)
{
    for (const char* weight : {"bold", "bolder", "600", "700", "900", "BOLD"})
        EXPECT_TRUE(styled("font-weight:" + QByteArray(weight)).font->bold) << weight;
    for (const char* weight : {"normal", "lighter", "400", "500", "100", "wrong"})
        EXPECT_FALSE(styled("font-weight:" + QByteArray(weight)).font->bold) << weight;
    EXPECT_TRUE(styled("font-style:oblique 14deg").font->italic);
}

TEST(TextStyleTest, Sizes)
{
    struct Case {
        const char* size;
        double points;
    };
    for (const Case& c : {Case{"16px", 16},
                          {"12pt", 16},
                          {"1.5em", 24},
                          {"2rem", 32},
                          {"50%", 8},
                          {"1in", 96},
                          {"medium", 16},
                          {"small", 13},
                          {"x-small", 10},
                          {"xx-small", 9},
                          {"large", 18},
                          {"x-large", 24},
                          {"xx-large", 32},
                          {"larger", 19.2},
                          {"0", 1},
                          {"99999px", 1000},
                          {"-3px", 16},
                          {"huge", 16},
                          {"18", 18}}) {
        EXPECT_NEAR(styled("font-size:" + QByteArray(c.size)).font->size, c.points, 0.05) << c.size;
    }
    EXPECT_NEAR(styled("font-size:smaller").font->size, 16 / 1.2, 0.05);
    EXPECT_EQ(
        x("<span style='font-size:20px'><span style='font-size:50%'>x</span></span>").font->size,
        10);
    EXPECT_EQ(
        x("<div style='font-size:20px'><span style='font-size:1rem'>x</span></div>").font->size,
        16);
    EXPECT_NEAR(x("<small>x</small>").font->size, 16 / 1.2, 0.05);
    EXPECT_NEAR(x("<big>x</big>").font->size, 19.2, 0.05);
}

TEST(TextStyleTest, FontElements)
{
    const std::vector<std::pair<const char*, double>> sizes = {
        {"1", 10}, {"2", 13}, {"3", 16},  {"4", 18},  {"5", 24}, {"6", 32},
        {"7", 48}, {"9", 48}, {"+1", 18}, {"-1", 13}, {"-9", 10}};
    for (const auto& [size, points] : sizes)
        EXPECT_EQ(x("<font size='" + QByteArray(size) + "'>x</font>").font->size, points) << size;
    const TextAttributes attributes = x("<font face='Nope, Georgia' color='#f00'>x</font>");
    EXPECT_EQ(attributes.font->family, s("Georgia"));
    EXPECT_EQ(attributes.foregroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(x("<font color='00ff00'>x</font>").foregroundColor, (Color{0, 1, 0}));
}

TEST(TextStyleTest, TheFirstFamilyThatExistsIsTaken)
{
    struct Case {
        const char* list;
        const char* family;
        bool monospaced;
    };
    for (const Case& c : {Case{"Georgia", "Georgia", false},
                          {"georgia", "Georgia", false},
                          {"\"No Such\", Verdana, sans-serif", "Verdana", false},
                          {"No Such, Trebuchet MS", "Trebuchet MS", false},
                          {"No Such", "Helvetica", false},
                          {"serif", "Times New Roman", false},
                          {"No Such, serif", "Times New Roman", false},
                          {"sans-serif", "Helvetica", false},
                          {"monospace", "Menlo", true},
                          {"Monaco, Menlo, Consolas, \"Courier New\", monospace", "Monaco", true},
                          {"Consolas", "Menlo", true},
                          {"Arial-BoldMT", "Arial", false},
                          {"-apple-system", ".AppleSystemUIFont", false}}) {
        const auto font = *styled("font-family:" + QByteArray(c.list)).font;
        EXPECT_EQ(font.family, s(c.family)) << c.list;
        EXPECT_EQ(font.monospaced, c.monospaced) << c.list;
    }
    EXPECT_EQ(
        x("<span style='font-family:Georgia'><span style='font-family:inherit'>x</span></span>")
            .font->family,
        s("Georgia"));
}

TEST(TextStyleTest, TheFontShorthand)
{
    const auto font = *styled("font: italic bold 20px/1.5 \"No Such\", Georgia, serif").font;
    EXPECT_EQ(font, (platform::Font{s("Georgia"), 20, true, true}));
    EXPECT_EQ(*styled("font:12px Arial").font, (platform::Font{s("Arial"), 12}));
    EXPECT_FALSE(x("<b><span style='font:12px Arial'>x</span></b>").font->bold);
    EXPECT_EQ(styled("font:caption").font->size, 16);
    EXPECT_EQ(styled("font:700 small-caps large Menlo").font->size, 18);
    EXPECT_TRUE(styled("font:700 small-caps large Menlo").font->bold);
}

TEST(TextStyleTest, Colours)
{
    EXPECT_EQ(styled("color:#f00").foregroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(styled("color:rgba(255,0,0,0.5)").foregroundColor, (Color{1, 0, 0, 0.5}));
    EXPECT_EQ(styled("color:red;color:nonsense").foregroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(styled("color:windowtext").foregroundColor, std::nullopt);
    EXPECT_EQ(styled("color:red !important;color:blue").foregroundColor, (Color{1, 0, 0}));
    EXPECT_EQ(x("<span style='color:red'><span style='color:currentColor'>x</span></span>")
                  .foregroundColor,
              (Color{1, 0, 0}));
    EXPECT_EQ(
        test::at(test::import("<html><body text=\"#0000ff\">x</body></html>"), "x").foregroundColor,
        (Color{0, 0, 1}));
}

TEST(TextStyleTest, HighlightsAreTheRunsBackground)
{
    EXPECT_EQ(styled("background-color:#ff0").backgroundColor, (Color{1, 1, 0}));
    EXPECT_EQ(styled("background:url(x.png) no-repeat #ff0").backgroundColor, (Color{1, 1, 0}));
    EXPECT_EQ(x("<span style='background:yellow'><b style='background:transparent'>x</b></span>")
                  .backgroundColor,
              (Color{1, 1, 0}));
    EXPECT_EQ(x("<div style='background-color:#ff0'>x</div>").backgroundColor, (Color{1, 1, 0}));
    EXPECT_EQ(x("<div style='background-color:#fff'>x</div>").backgroundColor, std::nullopt);
    // The colour of a part of the page is no highlight of all the text in it.
    EXPECT_EQ(x("<div style='background-color:#ff0'><div>x</div></div>").backgroundColor,
              std::nullopt);
    // A list is no box, so its items' text has its colour.
    EXPECT_EQ(x("<ul style='background-color:#ff0'><li><div>x</div></li></ul>").backgroundColor,
              (Color{1, 1, 0}));
    EXPECT_EQ(
        test::at(test::import("<html><body style='background-color:#ff0'>x</body></html>"), "x")
            .backgroundColor,
        std::nullopt);
}

TEST(TextStyleTest, PaddingAndBordersMakeNoBoxOfInlineText)
{
    const TextAttributes attributes =
        styled("background:rgb(220,255,220);padding:0 4px;border:1px solid red");
    EXPECT_EQ(attributes.backgroundColor, Color::fromRgb8(220, 255, 220));
    EXPECT_TRUE(attributes.paragraphStyle->textBlocks.empty());
}

TEST(TextStyleTest, Lines)
{
    EXPECT_EQ(styled("text-decoration:underline").underline, LineStyle::Single);
    EXPECT_EQ(styled("text-decoration:line-through").strikethrough, LineStyle::Single);
    const TextAttributes both = styled("text-decoration:underline line-through red");
    EXPECT_EQ(both.underline, LineStyle::Single);
    EXPECT_EQ(both.strikethrough, LineStyle::Single);
    EXPECT_EQ(both.underlineColor, (Color{1, 0, 0}));
    EXPECT_EQ(styled("text-decoration:underline double").underline, LineStyle::Double);
    EXPECT_EQ(styled("text-decoration-line:underline;text-decoration-style:double").underline,
              LineStyle::Double);
    EXPECT_EQ(x("<u style='text-decoration:none'>x</u>").underline, LineStyle::None);
    // A child does not take away its parent's line.
    EXPECT_EQ(x("<u><span style='text-decoration:none'>x</span></u>").underline, LineStyle::Single);
}

TEST(TextStyleTest, ShiftsAndSpacing)
{
    EXPECT_EQ(x("<sup>x</sup>").superscript, 1);
    EXPECT_EQ(x("<sub>x</sub>").superscript, -1);
    EXPECT_LT(x("<sup>x</sup>").font->size, 16);
    EXPECT_EQ(x("<sup><sup>x</sup></sup>").superscript, 2);
    EXPECT_EQ(styled("vertical-align:super").superscript, 1);
    EXPECT_EQ(styled("vertical-align:sub").superscript, -1);
    EXPECT_EQ(styled("vertical-align:3px").baselineOffset, 3);
    EXPECT_EQ(styled("letter-spacing:2px").kern, 2);
    EXPECT_EQ(styled("letter-spacing:normal").kern, 0);
}

TEST(TextStyleTest, CustomPropertiesSpoilNothing)
{
    const TextAttributes attributes =
        styled("--en-fontfamily:kalam; --x:{a;b}; color:red;--en-y:1;font-weight:bold");
    EXPECT_EQ(attributes.foregroundColor, (Color{1, 0, 0}));
    EXPECT_TRUE(attributes.font->bold);
}

TEST(TextStyleTest, LinksOfAnyScheme)
{
    for (const char* url : {"https://example.com/a?b=c#d", "evernote:///view/1/s1/a/b/",
                            "mailto:a@b.c", "tel:123", "file:///a", "relative/path", "HTTP://X"}) {
        EXPECT_EQ(x("<a href='" + QByteArray(url) + "'>x</a>").link, s(url)) << url;
    }
    EXPECT_EQ(x("<a href='  a&amp;b '>x</a>").link, s("a&b"));
    EXPECT_EQ(x("<a href='x:y'><b>x</b></a>").link, s("x:y"));
    EXPECT_EQ(x("<a href='x:y'><div>x</div></a>").link, s("x:y"));
}

TEST(TextStyleTest, AnchorsAndScriptsAreNoLinks)
{
    EXPECT_TRUE(x("<a name='a'>x</a>").link.isEmpty());
    EXPECT_TRUE(x("<a href=''>x</a>").link.isEmpty());
    EXPECT_TRUE(x("<a href='#top'>x</a>").link.isEmpty());
    EXPECT_TRUE(x("<a href='JavaScript:alert(1)'>x</a>").link.isEmpty());
}

TEST(TextStyleTest, EqualRunsShareTheirAttributes)
{
    const auto text = test::import("<div><b>a</b>b<b>c</b>d</div>");
    const auto runs = text.runs();
    ASSERT_EQ(runs.size(), 4U);
    EXPECT_EQ(*runs[0].attributes, *runs[2].attributes);
    EXPECT_EQ(runs[1].attributes, runs[3].attributes);
}

} // namespace
