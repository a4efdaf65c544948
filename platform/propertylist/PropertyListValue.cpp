// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyListValue.h"

#include <QAssociativeIterable>
#include <QDateTime>
#include <QSequentialIterable>
#include <QSet>
#include <QTimeZone>

#include <cmath>

namespace platform {

namespace {

// The last instant, either side of 1970, that dates of common programs can hold.
constexpr double dateLimitInMilliseconds = 8.64e15;

std::optional<QVariant> canonicalContainer(const QVariant& value)
{
    if (QMetaType::canView(value.metaType(), QMetaType::fromType<QAssociativeIterable>())) {
        const auto iterable = value.value<QAssociativeIterable>();
        QVariantMap map;
        for (auto entry = iterable.begin(); entry != iterable.end(); ++entry) {
            const QVariant key = entry.key();
            if (key.typeId() != QMetaType::QString || map.contains(key.toString()))
                return std::nullopt;
            map.insert(key.toString(), entry.value());
        }
        return QVariant(map);
    }
    if (QMetaType::canView(value.metaType(), QMetaType::fromType<QSequentialIterable>())) {
        const auto iterable = value.value<QSequentialIterable>();
        QVariantList list;
        for (const QVariant& element : iterable)
            list += element;
        return QVariant(list);
    }
    return std::nullopt;
}

std::optional<QVariant> canonicalDate(const QDateTime& date)
{
    if (!date.isValid() || std::abs(double(date.toMSecsSinceEpoch())) > dateLimitInMilliseconds)
        return std::nullopt;
    return QVariant(date.toUTC());
}

bool isForbiddenInXml(char16_t unit)
{
    if (unit < 0x20)
        return unit != u'\t' && unit != u'\n' && unit != u'\r';
    return unit == 0xFFFE || unit == 0xFFFF;
}

bool mustRepair(QStringView text, qsizetype position, TextRepair repair)
{
    const QChar unit = text[position];
    if (unit.isHighSurrogate())
        return position + 1 == text.size() || !text[position + 1].isLowSurrogate();
    if (unit.isLowSurrogate())
        return position == 0 || !text[position - 1].isHighSurrogate();
    return repair == TextRepair::ForXml && isForbiddenInXml(unit.unicode());
}

} // namespace

std::optional<QVariant> canonicalPropertyListValue(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
    case QMetaType::QVariantList:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::Bool:
    case QMetaType::LongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return value;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
        return QVariant(value.toLongLong());
    case QMetaType::ULong:
    case QMetaType::ULongLong: {
        const quint64 number = value.toULongLong();
        const bool isSigned = number <= quint64(std::numeric_limits<qint64>::max());
        return isSigned ? QVariant(qlonglong(number)) : QVariant(qulonglong(number));
    }
    case QMetaType::QDateTime:
        return canonicalDate(value.toDateTime());
    default:
        break;
    }
    if (value.typeId() == qMetaTypeId<PropertyListUid>())
        return value;
    return canonicalContainer(value);
}

std::optional<double> secondsSince2001(const QDateTime& date)
{
    if (!date.isValid())
        return std::nullopt;
    return double(date.toMSecsSinceEpoch() - secondsTo2001 * 1000) / 1000.0;
}

std::optional<QDateTime> dateFromSecondsSince2001(double seconds)
{
    const double milliseconds = std::round((seconds + double(secondsTo2001)) * 1000.0);
    if (!(std::abs(milliseconds) <= dateLimitInMilliseconds))
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(qint64(milliseconds), Qt::UTC);
}

QString repairedText(const QString& text, TextRepair repair)
{
    QString result = text;
    for (qsizetype position = 0; position < text.size(); ++position) {
        if (mustRepair(text, position, repair))
            result[position] = QChar(QChar::ReplacementCharacter);
    }
    return result;
}

bool keysStayDistinct(const QVariantMap& dictionary, TextRepair repair)
{
    QSet<QString> changed;
    for (auto entry = dictionary.keyBegin(); entry != dictionary.keyEnd(); ++entry) {
        const QString repaired = repairedText(*entry, repair);
        if (repaired == *entry)
            continue;
        if (dictionary.contains(repaired) || changed.contains(repaired))
            return false;
        changed.insert(repaired);
    }
    return true;
}

} // namespace platform
