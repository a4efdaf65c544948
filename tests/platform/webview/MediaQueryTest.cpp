// SPDX-License-Identifier: MIT
#include "platform/webview/MediaQuery.h"

#include "platform/webview/CssLength.h"

namespace {

using platform::cssLength;
using platform::mediaQueryMatches;

class MatchingMediaTest : public ::testing::TestWithParam<const char*> {};
class OtherMediaTest : public ::testing::TestWithParam<const char*> {};

TEST_P(MatchingMediaTest, Matches)
{
    EXPECT_TRUE(mediaQueryMatches(QString::fromLatin1(GetParam())));
}
TEST_P(OtherMediaTest, DoesNotMatch)
{
    EXPECT_FALSE(mediaQueryMatches(QString::fromLatin1(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(
    MediaQuery, MatchingMediaTest,
    ::testing::Values("", "all", "screen", "print, SCREEN", "only screen", "not print", "(min-width: 800px)",
                      "screen and (max-width:800px) and (height:600px)", "(min-width: 50em)",
                      "(orientation: landscape)", "(width >= 600px)", "(400px < width <= 800px)",
                      "(800px >= width)", "not screen and (min-width: 900px)", "not (width < 800px)",
                      "(color)", "(min-resolution: 1dppx)", "(max-resolution: 96dpi)",
                      "(-webkit-max-device-pixel-ratio: 1.5)", "(aspect-ratio: 4/3)",
                      "(prefers-color-scheme: light)", "(hover: hover) and (pointer: fine)",
                      "(min-width: 900px) or (min-height: 500px)",
                      "((min-width: 600px) and (max-width: 900px))", "print and (color), screen"));
INSTANTIATE_TEST_SUITE_P(
    MediaQuery, OtherMediaTest,
    ::testing::Values("print", "tv", "not screen", "not all", "(min-width: 801px)",
                      "screen and (max-width: 799px)", "(orientation: portrait)", "(width > 800px)",
                      "(min-resolution: 2dppx)", "(-webkit-min-device-pixel-ratio: 2)",
                      "(prefers-color-scheme: dark)", "(prefers-reduced-motion)", "(monochrome)",
                      "(scripting: enabled)", "(unknown: 1)", "(min-width)", "screen and", "screen (color)",
                      "((((((((((color))))))))))", "(", ")", "and", "(min-width: 10quux)"));

TEST(MediaQueryTest, FollowsTheMediaStyle)
{
    EXPECT_TRUE(mediaQueryMatches(u"print", u"print"));
    EXPECT_FALSE(mediaQueryMatches(u"screen", u"print"));
}

TEST(MediaQueryTest, MeasuresLengths)
{
    EXPECT_EQ(cssLength(u" 10PX "), 10);
    EXPECT_EQ(cssLength(u"2em"), 32);
    EXPECT_EQ(cssLength(u"1.5rem"), 24);
    EXPECT_EQ(cssLength(u"50vw"), 400);
    EXPECT_EQ(cssLength(u"1in"), 96);
    EXPECT_EQ(cssLength(u"0"), 0);
    EXPECT_EQ(cssLength(u"calc(100vw - 2em + 10px)"), 778);
    EXPECT_EQ(cssLength(u"10"), std::nullopt);
    EXPECT_EQ(cssLength(u"px"), std::nullopt);
    EXPECT_EQ(cssLength(u"calc(1px * 2)"), std::nullopt);
}

} // namespace
