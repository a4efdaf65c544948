// SPDX-License-Identifier: MIT
#include "formats/CoderQLExtensions.h"

using platform::ArchiveValue;
using platform::KeyedArchiver;
using platform::KeyedUnarchiver;
using platform::TextRange;

namespace {

const QString xKey = QStringLiteral("x");
const QString yKey = QStringLiteral("y");
const QString widthKey = QStringLiteral("width");
const QString heightKey = QStringLiteral("height");

ArchiveValue::Entry floatEntry(const QString& key, double value)
{
    return {ArchiveValue::string(key), ArchiveValue::floating(static_cast<float>(value))};
}

double floatValue(const ArchiveValue& dictionary, const QString& key)
{
    return static_cast<double>(dictionary.valueForKey(key).toFloat());
}

// The next run of digits from the position on, which moves behind it; a number beyond 64 bits is
// its limit.
qsizetype takeNumber(QStringView text, qsizetype& position)
{
    while (position < text.size() && (text[position] < u'0' || text[position] > u'9'))
        ++position;
    constexpr qsizetype limit = std::numeric_limits<qsizetype>::max();
    qsizetype number = 0;
    for (; position < text.size() && text[position] >= u'0' && text[position] <= u'9'; ++position) {
        const qsizetype digit = text[position].unicode() - u'0';
        number = number > (limit - digit) / 10 ? limit : number * 10 + digit;
    }
    return number;
}

} // namespace

QString stringFromRange(TextRange range)
{
    return QStringLiteral("{%1, %2}").arg(range.location).arg(range.length);
}

TextRange rangeFromString(const QString& text)
{
    qsizetype position = 0;
    const qsizetype location = takeNumber(text, position);
    return {location, takeNumber(text, position)};
}

void encodeRangeInQuillery(KeyedArchiver& coder, TextRange range, const QString& key)
{
    coder.encodeString(stringFromRange(range), key);
}

TextRange decodeRangeInQuilleryForKey(KeyedUnarchiver& coder, const QString& key)
{
    return rangeFromString(coder.decodeString(key));
}

void encodeCGRectInQuillery(KeyedArchiver& coder, const QRectF& rect, const QString& key)
{
    coder.encodeObject(
        ArchiveValue::dictionary({floatEntry(xKey, rect.x()), floatEntry(yKey, rect.y()),
                                  floatEntry(widthKey, rect.width()),
                                  floatEntry(heightKey, rect.height())}),
        key);
}

QRectF decodeCGRectInQuilleryForKey(KeyedUnarchiver& coder, const QString& key)
{
    const ArchiveValue dictionary = coder.decodeObject(key);
    return {floatValue(dictionary, xKey), floatValue(dictionary, yKey),
            floatValue(dictionary, widthKey), floatValue(dictionary, heightKey)};
}
