// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfControlWords.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

void appendControl(QByteArray& out, QByteArrayView word, qint64 value)
{
    std::array<char, 24> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out.append(word);
    out.append(digits.data(), end - digits.data());
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
