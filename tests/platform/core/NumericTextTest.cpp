// SPDX-License-Identifier: MIT
#include "platform/core/NumericText.h"

#include <limits>

namespace {

TEST(NumericTextTest, ReadsTheNumberAtTheBeginning)
{
    EXPECT_EQ(platform::doubleValue(u"40.5px"), 40.5);
    EXPECT_EQ(platform::doubleValue(u" \n12"), 12);
    EXPECT_EQ(platform::doubleValue(u"-1.5e2x"), -150);
    EXPECT_EQ(platform::doubleValue(u"+3"), 3);
    EXPECT_EQ(platform::integerValue(u"10.2"), 10);
    EXPECT_EQ(platform::integerValue(u" -7b"), -7);
}

TEST(NumericTextTest, ATextWithoutANumberMeansZero)
{
    for (const char16_t* text : {u"", u"px", u"inf", u"nan", u"infinity1", u"\u0663", u"-", u"+-3"}) {
        EXPECT_EQ(platform::doubleValue(text), 0);
        EXPECT_EQ(platform::integerValue(text), 0);
    }
}

TEST(NumericTextTest, IntegersStopAtTheirLimits)
{
    EXPECT_EQ(platform::integerValue(u"99999999999999999999"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(platform::integerValue(u"-99999999999999999999"), std::numeric_limits<qint64>::min());
}

} // namespace
