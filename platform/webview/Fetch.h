// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/LoadErrors.h"
#include "platform/webview/LoadLimits.h"
#include "platform/webview/URLResponse.h"

#include <QByteArray>

#include <functional>
#include <memory>

namespace platform {

class NetworkSession;

// What a transfer reports, from the event loop. After fetchFinished or fetchFailed nothing more comes.
class FetchObserver {
public:
    virtual ~FetchObserver() = default;

    // The server sent us on from redirect to address.
    virtual void fetchRedirected(const URLResponse& redirect, const QString& address) = 0;
    // The server wants a credential; it gets none, and its answer follows as the response.
    virtual void fetchChallenged(const URLResponse& response) = 0;
    virtual void fetchResponded(const URLResponse& response) = 0;
    // So many bytes more; false refuses them and fails the transfer.
    virtual bool fetchReceived(qint64 byteCount) = 0;
    virtual void fetchFinished(const QByteArray& body) = 0;
    virtual void fetchFailed(const Error& error) = 0;
};

struct FetchRequest {
    QString address;
    QString referrer;
    QByteArray accept;
};

// One transfer. It begins with start(), never reports from within it, and blocks nobody.
class Fetch : public std::enable_shared_from_this<Fetch> {
public:
    // The kind of transfer that the address needs. The session must outlive it.
    [[nodiscard]] static std::shared_ptr<Fetch> create(const FetchRequest& request, const LoadLimits& limits,
                                                       NetworkSession& session);
    Fetch(const Fetch&) = delete;
    Fetch& operator=(const Fetch&) = delete;
    virtual ~Fetch() = default;

    // The observer must outlive the transfer or cancel it.
    void start(FetchObserver& observer);
    // Ends it without a report.
    virtual void cancel() { m_observer = nullptr; }

protected:
    Fetch(FetchRequest request, const LoadLimits& limits)
        : m_request(std::move(request))
        , m_limits(limits)
    {
    }

    virtual void begin() = 0;
    // Runs the step in a later turn of the event loop, unless the transfer has ended by then.
    void later(std::function<void()> step);

    void respond(const URLResponse& response);
    // Takes bytes; false when a limit was passed, and then the transfer has failed.
    [[nodiscard]] bool receive(const QByteArray& bytes);
    void finish();
    void fail(const Error& error);

    [[nodiscard]] FetchObserver* observer() const { return m_observer; }
    [[nodiscard]] const FetchRequest& request() const { return m_request; }
    [[nodiscard]] const LoadLimits& limits() const { return m_limits; }
    void reserve(qint64 byteCount) { m_body.reserve(byteCount); }

private:
    FetchRequest m_request;
    LoadLimits m_limits;
    FetchObserver* m_observer = nullptr;
    QByteArray m_body;
};

// Runs the work in a later turn of the main thread's event loop.
void inLaterTurn(std::function<void()> work);

} // namespace platform
