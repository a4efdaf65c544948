// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

namespace platform {

// A request for an address, by GET and without a body.
class URLRequest {
public:
    URLRequest() = default;
    explicit URLRequest(QUrl url)
        : m_url(std::move(url))
    {
    }

    // As it was given: what may not be sent is left out of the transfer, not of this.
    [[nodiscard]] const QUrl& url() const { return m_url; }

private:
    QUrl m_url;
};

} // namespace platform
