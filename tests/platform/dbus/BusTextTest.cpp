// SPDX-License-Identifier: MIT
#include "platform/dbus/BusText.h"

#include "support/RandomText.h"

namespace {

using platform::busText;
using platform::isBusText;

TEST(BusTextTest, WhatTheBusCarriesStaysAsItIs)
{
    for (const QString& text :
         {QString(), QStringLiteral("a\tb\n"), QStringLiteral("\u00e9\u4e2d"),
          QString::fromUcs4(U"\U0001F600\U0010FFFF"), QString(QChar(0xFFFE))}) {
        EXPECT_TRUE(isBusText(text));
        EXPECT_EQ(busText(text), text);
    }
}

TEST(BusTextTest, ZeroAndHalvesOfPairsBecomeReplacementCharacters)
{
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    const QChar replacement(QChar::ReplacementCharacter);
    for (const QString& text : {QString(QChar(QChar::Null)), QString(high), QString(low)}) {
        EXPECT_FALSE(isBusText(text));
        EXPECT_EQ(busText(text), QString(replacement));
    }
    EXPECT_EQ(busText(QString(low) + high), QString(2, replacement));
    EXPECT_EQ(busText(QString(high) + high + low), QString(replacement) + high + low);
}

TEST(BusTextTest, EveryTextBecomesOneThatTheBusCarriesOfTheSameLength)
{
    test::RandomText random(1);
    for (int count = 0; count < 2000; ++count) {
        const QString text = random.next(40);
        EXPECT_TRUE(isBusText(busText(text)));
        EXPECT_EQ(busText(text).size(), text.size());
        QString arrived = busText(text);
        if (arrived.startsWith(QChar(QChar::ByteOrderMark)))
            arrived.remove(0, 1);
        EXPECT_EQ(QString::fromUtf8(busText(text).toUtf8().constData()), arrived);
    }
}

} // namespace
