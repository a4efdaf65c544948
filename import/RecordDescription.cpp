// SPDX-License-Identifier: MIT
#include "import/RecordDescription.h"

#include "platform/core/DateFormatter.h"

namespace {

QString valueDescription(const QVariant& value)
{
    if (value.userType() == QMetaType::QDateTime)
        return QLatin1Char('"') + platform::standardDateDescription(value.toDateTime()) + QLatin1Char('"');
    if (value.userType() == QMetaType::QString)
        return QLatin1Char('"') + value.toString() + QLatin1Char('"');
    if (value.userType() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    return value.toString();
}

} // namespace

QString recordDescription(const platform::manifest::Record& record)
{
    QString text = QStringLiteral("{\n");
    for (auto entry = record->cbegin(); entry != record->cend(); ++entry)
        text += QStringLiteral("    ") + entry.key() + QStringLiteral(" = ") + valueDescription(entry.value()) + QStringLiteral(";\n");
    return text + QLatin1Char('}');
}
