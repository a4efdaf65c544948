// SPDX-License-Identifier: MIT
#pragma once

#include "platform/webview/Fetch.h"
#include "platform/webview/URLRequest.h"

#include <QList>

namespace platform {

class PageLoad;
class WebDataSource;

// One transfer of a page, reported to the view's resource-load delegate.
class ResourceLoad final : public FetchObserver {
public:
    enum class State { Loading, Finished, Failed };

    // Of a document's load, which goes through steps before its end.
    struct Steps {
        std::function<void(const QString& address)> redirected;
        std::function<void(const URLResponse&)> responded;
    };

    // The data source is the one that the delegate is told.
    ResourceLoad(PageLoad& page, std::shared_ptr<WebDataSource> dataSource, URLRequest request);
    ~ResourceLoad() override;
    ResourceLoad(const ResourceLoad&) = delete;
    ResourceLoad& operator=(const ResourceLoad&) = delete;

    void start(const FetchRequest& request, Steps steps = {});
    void cancel();
    // Called once when the load has ended; at once where it has.
    void whenEnded(std::function<void()> work);

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] const URLResponse& response() const { return m_response; }
    [[nodiscard]] const QByteArray& body() const { return m_body; }
    [[nodiscard]] const Error& error() const { return m_error; }

    void fetchRedirected(const URLResponse& redirect, const QString& address) override;
    void fetchChallenged(const URLResponse& response) override;
    void fetchResponded(const URLResponse& response) override;
    bool fetchReceived(qint64 byteCount) override;
    void fetchFinished(const QByteArray& body) override;
    void fetchFailed(const Error& error) override;

private:
    void end(State state);

    PageLoad& m_page;
    std::shared_ptr<WebDataSource> m_dataSource;
    URLRequest m_request;
    Steps m_steps;
    std::shared_ptr<Fetch> m_fetch;
    QString m_identifier;
    State m_state = State::Loading;
    URLResponse m_response;
    QByteArray m_body;
    Error m_error;
    QList<std::function<void()>> m_waiting;
};

} // namespace platform
