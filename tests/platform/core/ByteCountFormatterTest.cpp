// SPDX-License-Identifier: MIT
#include "platform/core/ByteCountFormatter.h"

#include <QLocale>

#include <limits>

namespace {

using namespace Qt::StringLiterals;
using platform::byteCountString;

TEST(ByteCountFormatterTest, ShowsCountsInTheFileStyle)
{
    EXPECT_EQ(byteCountString(0), u"Zero KB"_s);
    EXPECT_EQ(byteCountString(1), u"1 byte"_s);
    EXPECT_EQ(byteCountString(999), u"999 bytes"_s);
    EXPECT_EQ(byteCountString(1000), u"1 KB"_s);
    EXPECT_EQ(byteCountString(1499), u"1 KB"_s);
    EXPECT_EQ(byteCountString(999'499), u"999 KB"_s);
    EXPECT_EQ(byteCountString(1'200'000), u"1.2 MB"_s);
    EXPECT_EQ(byteCountString(12'000'000), u"12 MB"_s);
    EXPECT_EQ(byteCountString(1'500'000'000), u"1.5 GB"_s);
    EXPECT_EQ(byteCountString(1'234'567'890), u"1.23 GB"_s);
    EXPECT_EQ(byteCountString(1'050'000'000'000), u"1.05 TB"_s);
    EXPECT_EQ(byteCountString(2'000'000'000'000'000), u"2 PB"_s);
    EXPECT_EQ(byteCountString(std::numeric_limits<qint64>::max()), u"9.22 EB"_s);
}

TEST(ByteCountFormatterTest, WhatRoundsToAThousandIsOneOfTheNextUnit)
{
    EXPECT_EQ(byteCountString(999'500), u"1 MB"_s);
    EXPECT_EQ(byteCountString(999'950'000), u"1 GB"_s);
    EXPECT_EQ(byteCountString(999'995'000'000), u"1 TB"_s);
}

TEST(ByteCountFormatterTest, HalvesAreRoundedToTheEvenDigit)
{
    EXPECT_EQ(byteCountString(1500), u"2 KB"_s);
    EXPECT_EQ(byteCountString(2500), u"2 KB"_s);
    EXPECT_EQ(byteCountString(2501), u"3 KB"_s);
}

TEST(ByteCountFormatterTest, NegativeCountsHaveASign)
{
    EXPECT_EQ(byteCountString(-1), u"-1 byte"_s);
    EXPECT_EQ(byteCountString(-1'200'000), u"-1.2 MB"_s);
    EXPECT_EQ(byteCountString(std::numeric_limits<qint64>::min()), u"-9.22 EB"_s);
}

TEST(ByteCountFormatterTest, TheDecimalSeparatorIsTheUsers)
{
    QLocale::setDefault(QLocale(QLocale::German));
    const QString text = byteCountString(1'200'000);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(text, u"1,2 MB"_s);
}

} // namespace
