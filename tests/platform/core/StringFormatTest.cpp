// SPDX-License-Identifier: MIT
#include "platform/core/StringFormat.h"

#include "support/RandomText.h"

namespace {

using namespace Qt::StringLiterals;
using platform::stringWithFormat;

TEST(StringFormatTest, FillsPlacesInOrder)
{
    EXPECT_EQ(stringWithFormat(u"%@/sec"_s, {u"1 KB"_s}), u"1 KB/sec"_s);
    EXPECT_EQ(stringWithFormat(u"%ld of %@"_s, {u"1"_s, u"2"_s}), u"1 of 2"_s);
}

TEST(StringFormatTest, NumberedPlacesMaySwap)
{
    EXPECT_EQ(stringWithFormat(u"%2$@ <- %1$@ %1$ld"_s, {u"a"_s, u"b"_s}), u"b <- a a"_s);
}

TEST(StringFormatTest, ArgumentsAreNoFormats)
{
    EXPECT_EQ(stringWithFormat(u"%@ %@"_s, {u"%@"_s, u"%%"_s}), u"%@ %%"_s);
}

TEST(StringFormatTest, WhatIsNoPlaceStays)
{
    EXPECT_EQ(stringWithFormat(u"100%% %"_s, {}), u"100% %"_s);
    EXPECT_EQ(stringWithFormat(u"%@ %3$@ %0$@ %d %12345$@"_s, {u"a"_s}), u"a %3$@ %0$@ %d %12345$@"_s);
    EXPECT_EQ(stringWithFormat(u"%@%@"_s, {u"a"_s}), u"a%@"_s);
}

TEST(StringFormatTest, AnyFormatGivesAText)
{
    test::RandomText random(6);
    for (int count = 0; count < 2000; ++count)
        EXPECT_GE(stringWithFormat(u"%"_s + random.next(8) + u"%1"_s + random.next(4), {u"x"_s}).size(), 0);
}

} // namespace
