// SPDX-License-Identifier: MIT
#include "platform/webview/Fetch.h"

#include "platform/webview/DataUrl.h"
#include "platform/webview/FileFetch.h"
#include "platform/webview/HttpFetch.h"
#include "platform/webview/UrlText.h"

#include <QCoreApplication>

namespace platform {
namespace {

class DataFetch final : public Fetch {
public:
    DataFetch(const FetchRequest& request, const LoadLimits& limits)
        : Fetch(request, limits)
    {
    }

private:
    void begin() override
    {
        const std::optional<DataUrl> content = parseDataUrl(request().address);
        if (!content) {
            fail(urlError(UrlErrorBadUrl));
            return;
        }
        respond(URLResponse(request().address, content->type.mimeType, content->data.size(),
                            content->type.charset));
        if (receive(content->data))
            finish();
    }
};

class UnsupportedFetch final : public Fetch {
public:
    UnsupportedFetch(const FetchRequest& request, const LoadLimits& limits)
        : Fetch(request, limits)
    {
    }

private:
    void begin() override
    {
        fail(urlError(request().address.isEmpty() ? UrlErrorBadUrl : UrlErrorUnsupportedUrl));
    }
};

} // namespace

std::shared_ptr<Fetch> Fetch::create(const FetchRequest& request, const LoadLimits& limits,
                                     NetworkSession& session)
{
    if (isFileAddress(request.address))
        return std::make_shared<FileFetch>(request, limits);
    if (isWebAddress(request.address))
        return std::make_shared<HttpFetch>(request, limits, session);
    if (isDataAddress(request.address))
        return std::make_shared<DataFetch>(request, limits);
    return std::make_shared<UnsupportedFetch>(request, limits);
}

void Fetch::start(FetchObserver& observer)
{
    m_observer = &observer;
    later([this] { begin(); });
}

void Fetch::later(std::function<void()> step)
{
    inLaterTurn([weak = weak_from_this(), step = std::move(step)] {
        const std::shared_ptr<Fetch> self = weak.lock();
        if (self && self->m_observer)
            step();
    });
}

void Fetch::respond(const URLResponse& response)
{
    if (m_observer)
        m_observer->fetchResponded(response);
}

bool Fetch::receive(const QByteArray& bytes)
{
    if (!m_observer)
        return false;
    if (bytes.isEmpty())
        return true;
    if (m_body.size() + bytes.size() > m_limits.resourceBytes || !m_observer->fetchReceived(bytes.size())) {
        fail(urlError(UrlErrorDataLengthExceedsMaximum));
        return false;
    }
    m_body += bytes;
    return m_observer != nullptr;
}

void Fetch::finish()
{
    FetchObserver* receiver = m_observer;
    if (!receiver)
        return;
    cancel();
    // An empty body is data all the same.
    QByteArray body = std::exchange(m_body, {});
    receiver->fetchFinished(body.isNull() ? QByteArray("") : body);
}

void Fetch::fail(const Error& error)
{
    FetchObserver* receiver = m_observer;
    if (!receiver)
        return;
    cancel();
    m_body.clear();
    receiver->fetchFailed(error);
}

void inLaterTurn(std::function<void()> work)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
}

} // namespace platform
