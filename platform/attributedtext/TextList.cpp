// SPDX-License-Identifier: MIT
#include "platform/attributedtext/TextList.h"

#include <QStringView>

#include <array>
#include <utility>

namespace platform {

namespace {

// a … z, aa, ab …; numbers below 1 have no letters.
QString alphabetic(int number, char16_t first)
{
    if (number < 1)
        return QString::number(number);
    QString letters;
    for (; number > 0; number = (number - 1) / 26)
        letters.prepend(QChar(static_cast<char16_t>(first + (number - 1) % 26)));
    return letters;
}

// Roman numerals reach from 1 to 3999.
QString roman(int number)
{
    if (number < 1 || number > 3999)
        return QString::number(number);
    static constexpr std::array<std::pair<int, const char*>, 13> digits = {{
        {1000, "m"},
        {900, "cm"},
        {500, "d"},
        {400, "cd"},
        {100, "c"},
        {90, "xc"},
        {50, "l"},
        {40, "xl"},
        {10, "x"},
        {9, "ix"},
        {5, "v"},
        {4, "iv"},
        {1, "i"},
    }};
    QString text;
    for (const auto& [value, digit] : digits) {
        for (; number >= value; number -= value)
            text += QLatin1String(digit);
    }
    return text;
}

QString markerOfKind(QStringView kind, int number)
{
    static constexpr std::array<std::pair<QStringView, char16_t>, 8> bullets = {{
        {u"disc", u'\x2022'},
        {u"circle", u'\x25E6'},
        {u"square", u'\x25AA'},
        {u"hyphen", u'\x2043'},
        {u"check", u'\x2713'},
        {u"box", u'\x25A1'},
        {u"diamond", u'\x25C6'},
        {u"circled-bullet", u'\x29BF'},
    }};
    for (const auto& [name, bullet] : bullets) {
        if (kind == name)
            return QString(QChar(bullet));
    }
    if (kind == u"decimal")
        return QString::number(number);
    if (kind == u"lower-alpha" || kind == u"lower-latin")
        return alphabetic(number, u'a');
    if (kind == u"upper-alpha" || kind == u"upper-latin")
        return alphabetic(number, u'A');
    if (kind == u"lower-roman")
        return roman(number);
    if (kind == u"upper-roman")
        return roman(number).toUpper();
    if (kind == u"lower-hexadecimal")
        return QString::number(number, 16);
    if (kind == u"upper-hexadecimal")
        return QString::number(number, 16).toUpper();
    if (kind == u"octal")
        return QString::number(number, 8);
    return {};
}

} // namespace

QString TextList::markerForItemNumber(int number) const
{
    const QStringView format(markerFormat);
    const qsizetype open = format.indexOf(u'{');
    const qsizetype close = format.indexOf(u'}', open + 1);
    if (open < 0 || close < 0)
        return markerFormat;
    QString marker = format.first(open).toString();
    marker += markerOfKind(format.sliced(open + 1, close - open - 1), number);
    marker += format.sliced(close + 1);
    return marker;
}

} // namespace platform
