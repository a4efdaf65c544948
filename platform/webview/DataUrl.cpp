// SPDX-License-Identifier: MIT
#include "platform/webview/DataUrl.h"

namespace platform {

std::optional<DataUrl> parseDataUrl(const QString& address)
{
    const qsizetype comma = address.indexOf(QLatin1Char(','));
    if (!address.startsWith(QLatin1String("data:"), Qt::CaseInsensitive) || comma < 0)
        return std::nullopt;
    QString header = address.mid(5, comma - 5).trimmed();
    DataUrl result;
    result.data = QByteArray::fromPercentEncoding(address.mid(comma + 1).toUtf8());
    if (header.endsWith(QLatin1String(";base64"), Qt::CaseInsensitive)) {
        header.chop(7);
        QByteArray text = result.data;
        text.removeIf([](char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); });
        const QByteArray::FromBase64Result decoded =
            QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded)
            return std::nullopt;
        result.data = *decoded;
    }
    if (header.startsWith(QLatin1Char(';')))
        header.prepend(QLatin1String("text/plain"));
    result.type = parseContentType(header);
    if (result.type.mimeType.isEmpty())
        result.type = {QStringLiteral("text/plain"), QStringLiteral("us-ascii")};
    return result;
}

} // namespace platform
