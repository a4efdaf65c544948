// SPDX-License-Identifier: MIT
#include "enex/TimeStamp.h"

#include "support/QtPrinting.h"

#include <gtest/gtest.h>

namespace {

TEST(TimeStampTest, AStampIsAMomentInUtc)
{
    EXPECT_EQ(utcDateFromTimeStamp(u"20130412T093015Z"),
              QDateTime(QDate(2013, 4, 12), QTime(9, 30, 15), Qt::UTC));
    // The calendar's year, also where the week belongs to the next.
    EXPECT_EQ(utcDateFromTimeStamp(u"20181231T000000Z"),
              QDateTime(QDate(2018, 12, 31), QTime(0, 0), Qt::UTC));
}

TEST(TimeStampTest, AnyOtherFormIsNone)
{
    for (const char16_t* stamp :
         {u"", u"20130412T093015", u" 20130412T093015Z", u"20130412T093015Z\n",
          u"2013-04-12T09:30:15Z", u"20130412t093015Z", u"20131312T093015Z", u"20130431T093015Z",
          u"20130412T243015Z", u"2757600913T000000Z", u"10101T000000Z", u"2013041\u0662T093015Z",
          u"-0130412T093015Z"})
        EXPECT_FALSE(utcDateFromTimeStamp(stamp)) << QString::fromUtf16(stamp).toStdString();
}

} // namespace
