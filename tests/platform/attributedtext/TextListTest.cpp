// SPDX-License-Identifier: MIT
#include "platform/attributedtext/TextList.h"

namespace {

QString marker(const char* format, int number)
{
    return platform::TextList{QString::fromUtf8(format)}.markerForItemNumber(number);
}

QString s(const char* text)
{
    return QString::fromUtf8(text);
}

TEST(TextListTest, BulletsAreTheirCharacters)
{
    EXPECT_EQ(marker("{disc}", 7), s("\u2022"));
    EXPECT_EQ(marker("{circle}", 1), s("\u25E6"));
    EXPECT_EQ(marker("{square}", 1), s("\u25AA"));
    EXPECT_EQ(marker("{hyphen}", 1), s("\u2043"));
    EXPECT_EQ(marker("{check}", 1), s("\u2713"));
}

TEST(TextListTest, NumbersKeepWhatStandsRoundThem)
{
    EXPECT_EQ(marker("{decimal}.", 12), s("12."));
    EXPECT_EQ(marker("({decimal})", 3), s("(3)"));
    EXPECT_EQ(marker("{decimal}.", -2), s("-2."));
    EXPECT_EQ(marker("{decimal}.", 0), s("0."));
}

TEST(TextListTest, LettersGoOnAfterZ)
{
    EXPECT_EQ(marker("{lower-alpha}.", 1), s("a."));
    EXPECT_EQ(marker("{lower-alpha}.", 26), s("z."));
    EXPECT_EQ(marker("{lower-alpha}.", 27), s("aa."));
    EXPECT_EQ(marker("{upper-alpha}.", 52), s("AZ."));
    EXPECT_EQ(marker("{upper-alpha}.", 703), s("AAA."));
    EXPECT_EQ(marker("{lower-alpha}.", 0), s("0."));
    EXPECT_EQ(marker("{lower-latin}.", 2), s("b."));
    EXPECT_EQ(marker("{upper-latin}.", std::numeric_limits<int>::max()), s("FXSHRXW."));
}

TEST(TextListTest, RomanNumeralsEndWhereTheyEnd)
{
    EXPECT_EQ(marker("{lower-roman}.", 4), s("iv."));
    EXPECT_EQ(marker("{upper-roman}.", 1994), s("MCMXCIV."));
    EXPECT_EQ(marker("{lower-roman}.", 3999), s("mmmcmxcix."));
    EXPECT_EQ(marker("{lower-roman}.", 4000), s("4000."));
    EXPECT_EQ(marker("{lower-roman}.", 0), s("0."));
}

TEST(TextListTest, AFormatWithoutAKindIsTheMarker)
{
    EXPECT_EQ(marker("", 1), QString());
    EXPECT_EQ(marker("-", 1), s("-"));
    EXPECT_EQ(marker("{none}", 1), QString());
    EXPECT_EQ(marker("{decimal", 1), s("{decimal"));
    EXPECT_EQ(marker("}{", 1), s("}{"));
}

} // namespace
