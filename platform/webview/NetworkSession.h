// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QString>

#include <chrono>
#include <memory>

class QNetworkAccessManager;

namespace platform {

// The connections and cookies of one page, shared with no other, and when its servers were last heard of.
class NetworkSession {
public:
    NetworkSession();
    ~NetworkSession();
    NetworkSession(const NetworkSession&) = delete;
    NetworkSession& operator=(const NetworkSession&) = delete;

    // Made at the first call: a local page needs none.
    [[nodiscard]] QNetworkAccessManager& manager();

    // A server sent something. A request that waits for a free connection to it is not idle meanwhile.
    void heardFrom(const QString& origin) { m_heard[origin].start(); }
    // The longest time when it was never heard of.
    [[nodiscard]] std::chrono::milliseconds silenceOf(const QString& origin) const;

private:
    std::unique_ptr<QNetworkAccessManager> m_manager;
    QHash<QString, QElapsedTimer> m_heard;
};

} // namespace platform
