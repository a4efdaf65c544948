// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/UrlText.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace platform {

// A piece of a page that was received: its bytes and what is known of them.
class WebResource {
public:
    WebResource() = default;
    // address is absolute text as a browser writes it.
    WebResource(QString address, QByteArray data, QString mimeType, QString textEncodingName = {},
                QString frameName = {})
        : m_address(std::move(address))
        , m_data(std::move(data))
        , m_mimeType(std::move(mimeType))
        , m_textEncodingName(std::move(textEncodingName))
        , m_frameName(std::move(frameName))
    {
    }

    [[nodiscard]] QUrl url() const { return m_address.isEmpty() ? QUrl() : urlOfAddress(m_address); }
    // The address under which the page asks for it, as absolute text; archives are looked up by it.
    [[nodiscard]] const QString& absoluteString() const { return m_address; }
    [[nodiscard]] const QByteArray& data() const { return m_data; }
    [[nodiscard]] const QString& mimeType() const { return m_mimeType; }
    // The charset that the response named, in lower case, or "UTF-8" for an archive's documents.
    [[nodiscard]] const QString& textEncodingName() const { return m_textEncodingName; }
    // Of a frame's document.
    [[nodiscard]] const QString& frameName() const { return m_frameName; }

private:
    QString m_address;
    QByteArray m_data;
    QString m_mimeType;
    QString m_textEncodingName;
    QString m_frameName;
};

} // namespace platform
