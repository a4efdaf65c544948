// SPDX-License-Identifier: MIT
#include "enex/TimeStamp.h"

#include <algorithm>

namespace {

constexpr qsizetype stampLength = 16;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

int number(QStringView digits)
{
    int result = 0;
    for (const QChar digit : digits)
        result = 10 * result + (digit.unicode() - u'0');
    return result;
}

} // namespace

std::optional<QDateTime> utcDateFromTimeStamp(QStringView text)
{
    if (text.size() != stampLength || text[8] != u'T' || text[15] != u'Z')
        return std::nullopt;
    const QStringView date = text.first(8);
    const QStringView clock = text.sliced(9, 6);
    if (!std::all_of(date.begin(), date.end(), isDigit) ||
        !std::all_of(clock.begin(), clock.end(), isDigit))
        return std::nullopt;
    const QDate day(number(text.sliced(0, 4)), number(text.sliced(4, 2)),
                    number(text.sliced(6, 2)));
    const QTime time(number(text.sliced(9, 2)), number(text.sliced(11, 2)),
                     number(text.sliced(13, 2)));
    if (!day.isValid() || !time.isValid())
        return std::nullopt;
    return QDateTime(day, time, Qt::UTC);
}
