// SPDX-License-Identifier: MIT
#include "platform/core/DateFormatter.h"

#include <QTimeZone>

#include <unicode/timezone.h>

namespace {

using platform::DateFormatter;

const QString enexPattern = QStringLiteral("YYYYMMdd'T'HHmmss'Z'");

QDateTime utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return {QDate(year, month, day), QTime(hour, minute, second), Qt::UTC};
}

TEST(DateFormatterTest, ReadsATimeStampWholeInItsPattern)
{
    const DateFormatter formatter(enexPattern);
    EXPECT_EQ(formatter.dateFromString(u"20130412T093015Z"), utc(2013, 4, 12, 9, 30, 15));
}

TEST(DateFormatterTest, WeekYearPatternReadsTheLastDayOfAYearAsThatDay)
{
    const DateFormatter formatter(enexPattern);
    EXPECT_EQ(formatter.dateFromString(u"20121231T000000Z"), utc(2012, 12, 31));
}

TEST(DateFormatterTest, WeekYearPatternWritesANewYearsEveInTheNextWeekYear)
{
    const DateFormatter weekYear(enexPattern);
    const DateFormatter calendarYear(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
    EXPECT_EQ(weekYear.stringFromDate(utc(2012, 12, 31)), QStringLiteral("20131231T000000Z"));
    EXPECT_EQ(calendarYear.stringFromDate(utc(2012, 12, 31)), QStringLiteral("20121231T000000Z"));
}

TEST(DateFormatterTest, RefusesWhatDoesNotFitThePattern)
{
    const DateFormatter formatter(enexPattern);
    for (const char16_t* text : {u"", u"   ", u"\n", u"20130412", u"20130412T093015", u"2013-04-12T09:30:15Z",
                                 u"20131312T000000Z", u"20130412T093015Z ", u"yesterday"})
        EXPECT_FALSE(formatter.dateFromString(text)) << testing::PrintToString(QString::fromUtf16(text).toStdString());
}

TEST(DateFormatterTest, ReadsWallClockTimeInTheSystemsTimeZone)
{
    const std::unique_ptr<icu::TimeZone> saved(icu::TimeZone::createDefault());
    icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone("Europe/Berlin"));
    const DateFormatter formatter(enexPattern);
    EXPECT_EQ(formatter.dateFromString(u"20130412T093015Z"), utc(2013, 4, 12, 7, 30, 15));
    icu::TimeZone::setDefault(*saved);
}

TEST(DateFormatterTest, DescribesADateInUtc)
{
    EXPECT_EQ(platform::standardDateDescription(utc(2018, 3, 9)), QStringLiteral("2018-03-09 00:00:00 +0000"));
    const QDateTime elsewhere(QDate(2018, 3, 9), QTime(1, 0), QTimeZone(3600));
    EXPECT_EQ(platform::standardDateDescription(elsewhere), QStringLiteral("2018-03-09 00:00:00 +0000"));
}

TEST(DateFormatterTest, WritesAMediumDateWithAShortTime)
{
    EXPECT_EQ(platform::mediumDateShortTimeString(utc(2013, 4, 12, 9, 30)), QStringLiteral("Apr 12, 2013, 9:30\u202FAM"));
}

} // namespace
