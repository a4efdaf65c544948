// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertylist/KeyedCoding.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace platform {

// What a transfer answered before its data.
class URLResponse : public KeyedCoding {
public:
    using Headers = QList<std::pair<QString, QString>>;

    URLResponse() = default;
    // address is absolute text as a browser writes it; a length of -1 is not known.
    URLResponse(QString address, QString mimeType, qint64 expectedContentLength, QString textEncodingName);

    // The answer of a web server.
    void setHttp(int statusCode, Headers headers);

    [[nodiscard]] QUrl url() const;
    // The address that answered, as absolute text.
    [[nodiscard]] const QString& absoluteString() const { return m_address; }
    [[nodiscard]] const QString& mimeType() const { return m_mimeType; }
    // In bytes; -1 when the server does not say.
    [[nodiscard]] qint64 expectedContentLength() const { return m_expectedContentLength; }
    // The charset that the response names, in lower case; empty when it names none.
    [[nodiscard]] const QString& textEncodingName() const { return m_textEncodingName; }

    // The status of an HTTP response; none of any other.
    [[nodiscard]] std::optional<int> statusCode() const { return m_statusCode; }
    [[nodiscard]] const Headers& allHeaderFields() const { return m_headers; }
    // Regardless of the name's case; empty when there is none.
    [[nodiscard]] QString headerField(QLatin1String name) const;

    // The type as it is known once the first bytes are there.
    void setMimeType(const QString& mimeType) { m_mimeType = mimeType; }

    // What a status code means, for users; the code's class where the code has no text of its own.
    [[nodiscard]] static QString localizedStringForStatusCode(int statusCode);

    [[nodiscard]] QStringList archivedClassNames() const override;
    void encodeWithCoder(KeyedArchiver& coder) override;

private:
    QString m_address;
    QString m_mimeType;
    qint64 m_expectedContentLength = -1;
    QString m_textEncodingName;
    std::optional<int> m_statusCode;
    Headers m_headers;
};

} // namespace platform
