// SPDX-License-Identifier: MIT
#include "platform/pasteboard/PasteboardTypes.h"

#include <QByteArray>

namespace platform {

QString uniformTypeForPasteboardType(const QString& type)
{
    constexpr const char* digits = "abcdefghkmnpqrstuvwxyz0123456789";
    QString identifier = QStringLiteral("dyn.a");
    unsigned bits = 0;
    int count = 0;
    for (const char byte : "?0=6:4=" + type.toUtf8()) {
        bits = (bits << 8 | static_cast<unsigned char>(byte)) & 0xFFFF;
        for (count += 8; count >= 5; count -= 5)
            identifier += QLatin1Char(digits[bits >> (count - 5) & 31]);
    }
    if (count > 0)
        identifier += QLatin1Char(digits[bits << (5 - count) & 31]);
    return identifier;
}

} // namespace platform
