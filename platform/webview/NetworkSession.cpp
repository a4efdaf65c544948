// SPDX-License-Identifier: MIT
#include "platform/webview/NetworkSession.h"

#include <QNetworkAccessManager>
#include <QNetworkCookieJar>

namespace platform {

NetworkSession::NetworkSession() = default;

NetworkSession::~NetworkSession() = default;

QNetworkAccessManager& NetworkSession::manager()
{
    if (!m_manager) {
        m_manager = std::make_unique<QNetworkAccessManager>();
        m_manager->setCookieJar(new QNetworkCookieJar);
    }
    return *m_manager;
}

std::chrono::milliseconds NetworkSession::silenceOf(const QString& origin) const
{
    const auto found = m_heard.constFind(origin);
    return found == m_heard.cend() ? std::chrono::milliseconds::max()
                                   : std::chrono::milliseconds(found->elapsed());
}

} // namespace platform
