// SPDX-License-Identifier: MIT
#include "platform/webview/HttpFetch.h"

#include "platform/core/Bundle.h"
#include "platform/webview/ContentType.h"
#include "platform/webview/LoadPolicy.h"
#include "platform/webview/NetworkSession.h"
#include "platform/webview/UrlText.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

namespace platform {
namespace {

// Bounds what is decompressed ahead of us.
constexpr qint64 readBufferBytes = 1 << 20;
constexpr qint64 pieceBytes = 1 << 20;

int statusCode(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

// A status of 400 and above is an answer like any other; what comes below these codes is a broken transfer.
bool isTransferError(QNetworkReply::NetworkError error, int status)
{
    return error != QNetworkReply::NoError && (status < 400 || error < QNetworkReply::ContentAccessDenied);
}

QByteArray userAgent()
{
    return "Mozilla/5.0 (X11; Linux) Vupuge/" + Bundle::main().shortVersionString().toLatin1();
}

} // namespace

HttpFetch::HttpFetch(const FetchRequest& request, const LoadLimits& limits, NetworkSession& session)
    : Fetch(request, limits)
    , m_session(session)
{
}

HttpFetch::~HttpFetch()
{
    dropReply();
}

void HttpFetch::cancel()
{
    dropReply();
    Fetch::cancel();
}

void HttpFetch::dropReply()
{
    if (!m_reply)
        return;
    // Its signals are ignored from here on.
    QNetworkReply* reply = std::exchange(m_reply, nullptr);
    m_idleTimer->stop();
    // Being deleted ends its transfer; abort() complains when an error is on its way already.
    reply->deleteLater();
}

void HttpFetch::begin()
{
    send(request().address);
}

void HttpFetch::send(const QString& address)
{
    m_address = address;
    QNetworkRequest request(urlOfAddress(address));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    // Manual also keeps the connection from answering Negotiate and NTLM on the user's behalf.
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    // The limits on resources and pages do what this check is for.
    request.setDecompressedSafetyCheckThreshold(-1);
    request.setRawHeader("User-Agent", userAgent());
    request.setRawHeader("Accept", this->request().accept);
    const QString referrer = LoadPolicy::referrer(address, this->request().referrer);
    if (!referrer.isEmpty())
        request.setRawHeader("Referer", referrer.toLatin1());

    m_reply = m_session.manager().get(request);
    m_reply->setReadBufferSize(readBufferBytes);
    const auto connected = [this](void (HttpFetch::*step)()) {
        return [weak = weak_from_this(), this, step, reply = m_reply.data()] {
            const std::shared_ptr<Fetch> self = weak.lock();
            if (self && observer() && reply == m_reply)
                (this->*step)();
        };
    };
    QObject::connect(m_reply, &QNetworkReply::metaDataChanged, m_reply,
                     connected(&HttpFetch::headersArrived));
    QObject::connect(m_reply, &QNetworkReply::readyRead, m_reply, connected(&HttpFetch::bytesArrived));
    QObject::connect(m_reply, &QNetworkReply::finished, m_reply, connected(&HttpFetch::replyFinished));

    m_idleTimer = new QTimer(m_reply);
    m_idleTimer->setSingleShot(true);
    QObject::connect(m_idleTimer, &QTimer::timeout, m_reply, connected(&HttpFetch::idled));
    m_idleTimer->start(limits().idle);
}

void HttpFetch::keepAlive()
{
    m_idleTimer->start(limits().idle);
    m_session.heardFrom(originOfAddress(m_address));
}

void HttpFetch::idled()
{
    const std::chrono::milliseconds silence = m_session.silenceOf(originOfAddress(m_address));
    if (silence < limits().idle)
        m_idleTimer->start(limits().idle - silence);
    else
        fail(urlError(UrlErrorTimedOut));
}

QString HttpFetch::location() const
{
    switch (statusCode(*m_reply)) {
    case 301:
    case 302:
    case 303:
    case 307:
    case 308:
        break;
    default:
        return {};
    }
    // Servers send what they should have escaped, as UTF-8.
    const QByteArray header = m_reply->rawHeader("Location");
    return header.isEmpty() ? QString() : QString::fromUtf8(header);
}

URLResponse HttpFetch::response() const
{
    const ContentType type = parseContentType(QString::fromLatin1(m_reply->rawHeader("Content-Type")));
    bool isNumber = false;
    const qint64 length = m_reply->rawHeader("Content-Length").toLongLong(&isNumber);
    URLResponse result(m_address, type.mimeType, isNumber && length >= 0 ? length : -1, type.charset);
    URLResponse::Headers headers;
    for (const auto& [name, value] : m_reply->rawHeaderPairs())
        headers += {QString::fromLatin1(name), QString::fromUtf8(value)};
    result.setHttp(statusCode(*m_reply), headers);
    return result;
}

void HttpFetch::headersArrived()
{
    keepAlive();
    const int status = statusCode(*m_reply);
    if (m_responded || status < 200)
        return;
    if (!location().isEmpty()) {
        // What follows the header may have no end. Where nothing does, the connection is kept.
        if (m_reply->rawHeader("Content-Length").trimmed() != "0")
            redirect();
        return;
    }
    URLResponse answer = response();
    if ((status == 401 || status == 407) && !std::exchange(m_challenged, true)) {
        observer()->fetchChallenged(answer);
        if (!observer())
            return;
    }
    if (answer.expectedContentLength() > limits().resourceBytes) {
        fail(urlError(UrlErrorDataLengthExceedsMaximum));
        return;
    }
    // Without a type the response waits for the first bytes, which show one.
    if (!answer.mimeType().isEmpty()) {
        m_responded = true;
        respond(answer);
    }
}

void HttpFetch::bytesArrived()
{
    keepAlive();
    // In pieces, since a few bytes may unpack to more than any limit allows.
    while (m_reply && m_reply->bytesAvailable() > 0) {
        const QByteArray piece = m_reply->read(pieceBytes);
        if (piece.isEmpty())
            return;
        if (location().isEmpty())
            take(piece);
    }
}

void HttpFetch::take(const QByteArray& bytes)
{
    if (!m_responded) {
        m_responded = true;
        URLResponse answer = response();
        if (answer.mimeType().isEmpty())
            answer.setMimeType(mimeTypeOfBytes(bytes));
        respond(answer);
    }
    if (observer())
        (void)receive(bytes);
}

void HttpFetch::replyFinished()
{
    const QNetworkReply::NetworkError error = m_reply->error();
    const int status = statusCode(*m_reply);
    if (isTransferError(error, status)) {
        fail(transferError(error));
        return;
    }
    if (!location().isEmpty()) {
        redirect();
        return;
    }
    bytesArrived();
    if (!observer())
        return;
    if (!m_responded) {
        m_responded = true;
        URLResponse answer = response();
        if (answer.mimeType().isEmpty())
            answer.setMimeType(QStringLiteral("text/plain"));
        respond(answer);
    }
    finish();
}

void HttpFetch::redirect()
{
    const QString target = absoluteAddress(location(), m_address);
    const URLResponse answer = response();
    if (!isWebAddress(target)) {
        fail(urlError(UrlErrorRedirectToNonExistentLocation));
        return;
    }
    if (++m_redirects > limits().redirects) {
        fail(urlError(UrlErrorTooManyRedirects));
        return;
    }
    observer()->fetchRedirected(answer, target);
    if (!observer())
        return;
    dropReply();
    send(target);
}

} // namespace platform
