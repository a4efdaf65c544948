// SPDX-License-Identifier: MIT
#include "foundation/StringPhrasesBMExtensions.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/core/StringFormat.h"

#include <cmath>
#include <limits>

namespace {

constexpr double secondsPerDay = 86400;
constexpr double secondsPerHour = 3600;
constexpr double secondsPerMinute = 60;

qint64 clampedToInteger(double value)
{
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd, which a double holds exactly
    if (std::isnan(value))
        return 0;
    if (value >= limit)
        return std::numeric_limits<qint64>::max();
    return value < -limit ? std::numeric_limits<qint64>::min() : qint64(value);
}

QString phrase(qint64 count, const char* singular, const char* plural)
{
    const QString format = platform::localizedString(count == 1 ? singular : plural);
    return platform::stringWithFormat(format, {QString::number(count)});
}

} // namespace

QString stringWithCString(const char* bytes, platform::StringEncoding encoding, qsizetype length)
{
    if (!bytes || length <= 0)
        return {};
    return platform::decodedString(QByteArrayView(bytes, qsizetype(qstrnlen(bytes, size_t(length)))), encoding);
}

QString stringWithQuantity(qint64 quantity, const QString& singularDescription, const QString& pluralDescription)
{
    return QString::number(quantity) + u' ' + (quantity == 1 ? singularDescription : pluralDescription);
}

QString stringForTimeInterval(double seconds)
{
    if (const qint64 days = clampedToInteger(std::floor(seconds / secondsPerDay)))
        return phrase(days, "%ld day remaining", "%ld days remaining");
    if (const qint64 hours = clampedToInteger(std::floor(seconds / secondsPerHour)))
        return phrase(hours, "%ld hour remaining", "%ld hours remaining");
    if (const qint64 minutes = clampedToInteger(std::floor(seconds / secondsPerMinute)))
        return phrase(minutes, "%ld minute remaining", "%ld minutes remaining");
    return phrase(clampedToInteger(std::ceil(seconds)), "%ld second remaining", "%ld seconds remaining");
}
