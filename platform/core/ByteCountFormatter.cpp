// SPDX-License-Identifier: MIT
#include "platform/core/ByteCountFormatter.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/core/StringFormat.h"

#include <QLocale>

namespace platform {

namespace {

struct Unit {
    const char* format;
    quint64 bytes;
    int decimals;
};

constexpr Unit units[] = {
    {"%@ KB", 1'000, 0},
    {"%@ MB", 1'000'000, 1},
    {"%@ GB", 1'000'000'000, 2},
    {"%@ TB", 1'000'000'000'000, 2},
    {"%@ PB", 1'000'000'000'000'000, 2},
    {"%@ EB", 1'000'000'000'000'000'000, 2},
};

quint64 powerOfTen(int exponent) { return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1); }

// The count in parts of the unit, as many as its decimals tell apart.
quint64 roundedParts(quint64 bytes, const Unit& unit)
{
    const quint64 part = unit.bytes / powerOfTen(unit.decimals);
    const quint64 parts = bytes / part;
    const quint64 rest = bytes % part;
    const bool roundsUp = rest > part / 2 || (rest == part / 2 && parts % 2 == 1);
    return roundsUp ? parts + 1 : parts;
}

QString numberText(quint64 parts, int decimals)
{
    const quint64 whole = powerOfTen(decimals);
    QString text = QLocale().toString(qulonglong(parts / whole));
    QString fraction = decimals > 0 ? QString::number(parts % whole).rightJustified(decimals, u'0') : QString();
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    if (!fraction.isEmpty())
        text += QLocale().decimalPoint() + fraction;
    return text;
}

} // namespace

QString byteCountString(qint64 bytes)
{
    if (bytes == 0)
        return localizedString("Zero KB");
    const quint64 count = bytes < 0 ? quint64(0) - quint64(bytes) : quint64(bytes);
    const QString sign = bytes < 0 ? QLocale().negativeSign() : QString();
    if (count < units[0].bytes)
        return stringWithFormat(localizedString(count == 1 ? "%@ byte" : "%@ bytes"),
                                {sign + QString::number(count)});
    const Unit* unit = units;
    // What rounds to a thousand of a unit is one of the next.
    while (unit + 1 != std::end(units) && roundedParts(count, *unit) >= 1000 * powerOfTen(unit->decimals))
        ++unit;
    return stringWithFormat(localizedString(unit->format), {sign + numberText(roundedParts(count, *unit), unit->decimals)});
}

} // namespace platform
