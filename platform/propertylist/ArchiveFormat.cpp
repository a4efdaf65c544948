// SPDX-License-Identifier: MIT
#include "platform/propertylist/ArchiveFormat.h"

#include "platform/propertylist/PropertyListUid.h"

#include <QLocale>
#include <QRegularExpression>

#include <array>

namespace platform::archive {

namespace {

QString numberText(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

} // namespace

QString escapedKey(const QString& key)
{
    return key.startsWith(QLatin1Char('$')) ? QLatin1Char('$') + key : key;
}

QString unescapedKey(const QString& key)
{
    return key.startsWith(QLatin1Char('$')) ? key.mid(1) : key;
}

std::optional<quint32> uidOf(const QVariant& value)
{
    if (value.typeId() != qMetaTypeId<PropertyListUid>())
        return std::nullopt;
    return value.value<PropertyListUid>().value;
}

QString textFromRect(const QRectF& rect)
{
    return QStringLiteral("{{%1, %2}, {%3, %4}}")
        .arg(numberText(rect.x()), numberText(rect.y()), numberText(rect.width()),
             numberText(rect.height()));
}

QRectF rectFromText(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("[-+]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][-+]?\\d+)?"));
    std::array<double, 4> values = {};
    auto matches = number.globalMatch(text);
    for (double& value : values) {
        if (matches.hasNext())
            value = matches.next().captured().toDouble();
    }
    return {values[0], values[1], values[2], values[3]};
}

} // namespace platform::archive
