// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfControlWords.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

void appendControl(RtfOutput& out, QByteArrayView word, qint64 value)
{
    constexpr qsizetype mostDigits = 24;
    char* const start = out.extend(word.size() + mostDigits);
    std::memcpy(start, word.data(), static_cast<std::size_t>(word.size()));
    char* const digits = start + word.size();
    const char* const end = std::to_chars(digits, digits + mostDigits, value).ptr;
    out.chop(mostDigits - (end - digits));
}

qint64 twipsFromPoints(double points)
{
    if (std::isnan(points))
        return 0;
    constexpr double largest = std::numeric_limits<qint32>::max();
    return std::llround(std::clamp(points * 20, -largest, largest));
}

double pointsFromTwips(qint64 twips)
{
    return static_cast<double>(twips) / 20;
}

} // namespace platform
