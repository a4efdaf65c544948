// SPDX-License-Identifier: MIT
#include "platform/webview/URLResponse.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/propertylist/KeyedArchiver.h"
#include "platform/webview/UrlText.h"

namespace platform {
namespace {

const char* textForStatusCode(int statusCode)
{
    switch (statusCode) {
    case 200:
        return "no error";
    case 201:
        return "created";
    case 202:
        return "accepted";
    case 204:
        return "no content";
    case 301:
        return "moved permanently";
    case 302:
        return "found";
    case 304:
        return "not modified";
    case 400:
        return "bad request";
    case 401:
        return "unauthorized";
    case 402:
        return "payment required";
    case 403:
        return "forbidden";
    case 404:
        return "not found";
    case 405:
        return "method not allowed";
    case 406:
        return "unacceptable";
    case 407:
        return "proxy authentication required";
    case 408:
        return "request timed out";
    case 409:
        return "conflict";
    case 410:
        return "no longer exists";
    case 411:
        return "length required";
    case 412:
        return "precondition failed";
    case 413:
        return "request too large";
    case 414:
        return "requested URL too long";
    case 415:
        return "unsupported media type";
    case 416:
        return "requested range not satisfiable";
    case 417:
        return "expectation failed";
    case 429:
        return "too many requests";
    case 500:
        return "internal server error";
    case 501:
        return "unimplemented";
    case 502:
        return "bad gateway";
    case 503:
        return "service unavailable";
    case 504:
        return "gateway timed out";
    case 505:
        return "unsupported version";
    default:
        break;
    }
    switch (statusCode / 100) {
    case 1:
        return "informational";
    case 2:
        return "success";
    case 3:
        return "redirected";
    case 4:
        return "client error";
    case 5:
        return "server error";
    default:
        return "";
    }
}

} // namespace

URLResponse::URLResponse(QString address, QString mimeType, qint64 expectedContentLength,
                         QString textEncodingName)
    : m_address(std::move(address))
    , m_mimeType(std::move(mimeType))
    , m_expectedContentLength(expectedContentLength)
    , m_textEncodingName(std::move(textEncodingName))
{
}

void URLResponse::setHttp(int statusCode, Headers headers)
{
    m_statusCode = statusCode;
    m_headers = std::move(headers);
}

QUrl URLResponse::url() const
{
    return m_address.isEmpty() ? QUrl() : urlOfAddress(m_address);
}

QString URLResponse::headerField(QLatin1String name) const
{
    for (const auto& [key, value] : m_headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

QString URLResponse::localizedStringForStatusCode(int statusCode)
{
    const char* text = textForStatusCode(statusCode);
    return *text ? localizedString(text) : QString();
}

QStringList URLResponse::archivedClassNames() const
{
    QStringList names = {QStringLiteral("NSURLResponse"), QStringLiteral("NSObject")};
    if (m_statusCode)
        names.prepend(QStringLiteral("NSHTTPURLResponse"));
    return names;
}

void URLResponse::encodeWithCoder(KeyedArchiver& coder)
{
    coder.encodeString(m_address, QStringLiteral("URL"));
    coder.encodeString(m_mimeType, QStringLiteral("MIMEType"));
    coder.encodeInt64(m_expectedContentLength, QStringLiteral("expectedContentLength"));
    if (!m_textEncodingName.isEmpty())
        coder.encodeString(m_textEncodingName, QStringLiteral("textEncodingName"));
    if (m_statusCode)
        coder.encodeInt64(*m_statusCode, QStringLiteral("statusCode"));
}

} // namespace platform
