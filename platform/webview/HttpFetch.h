// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/Fetch.h"

#include <QPointer>

class QTimer;

namespace platform {

// A transfer from a web server. Redirects are followed here, so that each target is judged; no credential
// is sent, whatever the address, the server or a proxy asks for.
class HttpFetch final : public Fetch {
public:
    HttpFetch(const FetchRequest& request, const LoadLimits& limits, NetworkSession& session);
    ~HttpFetch() override;

    void cancel() override;

private:
    void begin() override;
    void send(const QString& address);
    void headersArrived();
    void bytesArrived();
    void take(const QByteArray& bytes);
    void replyFinished();
    void redirect();
    void dropReply();
    void keepAlive();
    void idled();
    [[nodiscard]] URLResponse response() const;
    // The Location of a response that redirects; empty otherwise.
    [[nodiscard]] QString location() const;

    NetworkSession& m_session;
    QString m_address;
    QPointer<QNetworkReply> m_reply;
    QPointer<QTimer> m_idleTimer;
    int m_redirects = 0;
    bool m_responded = false;
    bool m_challenged = false;
};

} // namespace platform
