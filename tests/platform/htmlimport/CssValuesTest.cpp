// SPDX-License-Identifier: MIT
#include "platform/htmlimport/CssColors.h"
#include "platform/htmlimport/CssLengths.h"

namespace {

using namespace platform::css;
using platform::Color;

struct ColorCase {
    const char* text;
    int red;
    int green;
    int blue;
    double alpha;
};

class CssColorTest : public testing::TestWithParam<ColorCase> {};

TEST_P(CssColorTest, IsRead)
{
    const ColorCase& c = GetParam();
    const auto value = colorFrom(c.text);
    ASSERT_TRUE(value) << c.text;
    EXPECT_FALSE(value->isCurrentColor);
    EXPECT_NEAR(value->color.red * 255, c.red, 0.51) << c.text;
    EXPECT_NEAR(value->color.green * 255, c.green, 0.51) << c.text;
    EXPECT_NEAR(value->color.blue * 255, c.blue, 0.51) << c.text;
    EXPECT_NEAR(value->color.alpha, c.alpha, 0.005) << c.text;
}

INSTANTIATE_TEST_SUITE_P(
    Notations, CssColorTest,
    testing::Values(
        ColorCase{"#f80", 255, 136, 0, 1}, ColorCase{"#F808", 255, 136, 0, 8.0 / 15},
        ColorCase{"#fec1d0", 254, 193, 208, 1}, ColorCase{"#fec1d080", 254, 193, 208, 128.0 / 255},
        ColorCase{"rgb(1, 2, 3)", 1, 2, 3, 1}, ColorCase{"RGB(1,2,3)", 1, 2, 3, 1},
        ColorCase{"rgb(1 2 3)", 1, 2, 3, 1}, ColorCase{"rgb(1 2 3 / 50%)", 1, 2, 3, 0.5},
        ColorCase{"rgba(1, 2, 3, 0.25)", 1, 2, 3, 0.25}, ColorCase{"rgba(1,2,3,.5)", 1, 2, 3, 0.5},
        ColorCase{"rgb(100%, 50%, 0%)", 255, 127, 0, 1}, ColorCase{"rgb(300, -5, 3)", 255, 0, 3, 1},
        ColorCase{"hsl(120, 100%, 25%)", 0, 128, 0, 1},
        ColorCase{"hsl(120deg 100% 25%)", 0, 128, 0, 1},
        ColorCase{"hsla(240, 100%, 50%, 0.3)", 0, 0, 255, 0.3},
        ColorCase{"hsl(-120, 100%, 50%)", 0, 0, 255, 1},
        ColorCase{"hsl(0.5turn 100% 50%)", 0, 255, 255, 1},
        ColorCase{"hsl(0, 0%, 50%)", 128, 128, 128, 1}, ColorCase{"hwb(0 0% 0%)", 255, 0, 0, 1},
        ColorCase{"hwb(0 100% 100%)", 128, 128, 128, 1}, ColorCase{"red", 255, 0, 0, 1},
        ColorCase{"RebeccaPurple", 102, 51, 153, 1}, ColorCase{"aliceblue", 240, 248, 255, 1},
        ColorCase{"yellowgreen", 154, 205, 50, 1}, ColorCase{" transparent ", 0, 0, 0, 0}));

// The examples of the CSS Color Module, and values that can be told without one.
INSTANTIATE_TEST_SUITE_P(
    Spaces, CssColorTest,
    testing::Values(ColorCase{"lab(29.2345% 39.3825 20.0664)", 125, 35, 41, 1},
                    ColorCase{"lab(29.2345 39.3825 20.0664 / 0.5)", 125, 35, 41, 0.5},
                    ColorCase{"LCH(29.2345% 44.2 27)", 125, 35, 41, 1},
                    ColorCase{"oklab(40.101% 0.1147 0.0453)", 125, 35, 41, 1},
                    ColorCase{"oklch(40.101% 0.12332 21.555deg / 25%)", 125, 35, 41, 0.25},
                    ColorCase{"lab(100% 0 0)", 255, 255, 255, 1},
                    ColorCase{"lab(0 none none)", 0, 0, 0, 1},
                    ColorCase{"oklch(1 0 none)", 255, 255, 255, 1},
                    ColorCase{"oklch(62.8% 0.2577 0.0812turn)", 255, 0, 0, 1},
                    ColorCase{"color(srgb 1 0.5 0 / 50%)", 255, 128, 0, 0.5},
                    ColorCase{"color(srgb-linear 0.5 0 100%)", 188, 0, 255, 1},
                    ColorCase{"color(xyz 0.9505 1 1.089)", 255, 255, 255, 1},
                    ColorCase{"color(xyz-d50 0.9643 1 0.8251)", 255, 255, 255, 1},
                    ColorCase{"color(display-p3 1 1 1)", 255, 255, 255, 1},
                    ColorCase{"color(display-p3 0.9175 0.2003 0.1386)", 255, 0, 0, 1},
                    ColorCase{"color(a98-rgb 0 0 0)", 0, 0, 0, 1},
                    ColorCase{"color(a98-rgb 0.8586 0 0)", 255, 0, 0, 1},
                    ColorCase{"color(rec2020 0.792 0.231 0.0738)", 255, 0, 0, 1},
                    ColorCase{"color(prophoto-rgb 0.7022 0.2757 0.1035)", 255, 0, 0, 1}));

TEST(CssColorsTest, CurrentColorIsTheTextsOwn)
{
    const auto value = colorFrom("currentColor");
    ASSERT_TRUE(value);
    EXPECT_TRUE(value->isCurrentColor);
    EXPECT_FALSE(value->isTransparent());
    EXPECT_EQ(value->resolved(Color{1, 0, 0}), (Color{1, 0, 0}));
    EXPECT_EQ(value->resolved(std::nullopt), Color{});
}

TEST(CssColorsTest, WhatIsNoColourGivesNone)
{
    for (const char* text : {"", "inherit", "windowtext", "#12", "#12345", "#ggg", "rgb(1,2)",
                             "rgb(a,b,c)", "rgb(1,2,3,4,5)", "url(x)", "foo(1,2,3)", "123456",
                             "lab(1 2)", "lab(1 2 x)", "color(1 2 3)", "color(nowhere 1 2 3)",
                             "color(srgb 1 2)", "oklch(1 2 3 4 5)", "color-mix(in lab, red, blue)"}) {
        EXPECT_FALSE(colorFrom(text)) << text;
    }
}

TEST(CssColorsTest, AttributesMayLackTheNumberSign)
{
    EXPECT_EQ(colorFromAttribute("ff0000")->color, (Color{1, 0, 0}));
    EXPECT_EQ(colorFromAttribute("#ff0000")->color, (Color{1, 0, 0}));
    EXPECT_EQ(colorFromAttribute("red")->color, (Color{1, 0, 0}));
    EXPECT_FALSE(colorFromAttribute("no colour"));
}

TEST(CssLengthsTest, UnitsAreResolvedToPoints)
{
    struct Case {
        const char* text;
        double points;
    };
    constexpr double fontSize = 20;
    constexpr double rootSize = 10;
    for (const Case& c : {Case{"12px", 12},
                          {"12PX", 12},
                          {"12pt", 16},
                          {"1.5em", 30},
                          {"2rem", 20},
                          {"50%", 200},
                          {"1in", 96},
                          {"2.54cm", 96},
                          {"25.4mm", 96},
                          {"1pc", 16},
                          {"0", 0},
                          {"-.5em", -10},
                          {"+3px", 3},
                          {" 7px ", 7},
                          {"2ex", 20},
                          {"12.px", 12},
                          {"40.5px", 40.5}}) {
        const auto length = lengthFrom(c.text);
        ASSERT_TRUE(length) << c.text;
        const auto points = platform::css::points(*length, fontSize, rootSize, 400);
        ASSERT_TRUE(points) << c.text;
        EXPECT_NEAR(*points, c.points, 1e-9) << c.text;
    }
}

TEST(CssLengthsTest, WhatIsNoLengthGivesNone)
{
    for (const char* text :
         {"", "auto", "px", "12vw", "1 2", "calc(1px + 2px)", "0x12", "inf", "nan", "--1px"})
        EXPECT_FALSE(lengthFrom(text)) << text;
}

TEST(CssLengthsTest, HugeNumbersStayBounded)
{
    const std::string digits(100000, '9');
    EXPECT_EQ(lengthFrom(digits + "px")->value, 1e6);
    EXPECT_NEAR(*numberIn("0." + digits), 1, 1e-9);
}

TEST(CssLengthsTest, APercentageOfSomethingUnknownIsNoLength)
{
    EXPECT_FALSE(points(*lengthFrom("50%"), 10, 10));
}

TEST(CssLengthsTest, AttributesAreInPixels)
{
    EXPECT_EQ(lengthFromAttribute("40"), (Length{40, Length::Unit::Points}));
    EXPECT_EQ(lengthFromAttribute("40px"), (Length{40, Length::Unit::Points}));
    EXPECT_EQ(lengthFromAttribute("40.5px"), (Length{40.5, Length::Unit::Points}));
    EXPECT_EQ(lengthFromAttribute("50%"), (Length{50, Length::Unit::Percent}));
    EXPECT_EQ(lengthFromAttribute("30 foo"), (Length{30, Length::Unit::Points}));
    EXPECT_FALSE(lengthFromAttribute("auto"));
    EXPECT_FALSE(lengthFromAttribute("-4"));
}

} // namespace
