// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QHostAddress>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <functional>

namespace test {

struct HttpRequest {
    QString path;
    QHash<QString, QString> headers; // names in lower case

    [[nodiscard]] QString header(const char* name) const
    {
        return headers.value(QLatin1String(name));
    }
    [[nodiscard]] bool hasHeader(const char* name) const
    {
        return headers.contains(QLatin1String(name));
    }
};

struct HttpAnswer {
    int status = 200;
    QByteArray type = "text/html";
    QByteArray body;
    // Whole lines, without line ends.
    QByteArrayList headers;
    enum class Delivery {
        Whole,
        HeaderOnly,
        Never,
        CutShort,
        // A byte every few milliseconds.
        Slow,
        // Without a length; the end of the connection is the end.
        UntilClosed,
        // The body over and over, as fast as it is taken, or a byte of it every few milliseconds.
        Endless,
        Trickle
    } delivery = Delivery::Whole;

    [[nodiscard]] bool hasLength() const { return delivery < Delivery::UntilClosed; }
};

// A web server on the loopback interface, in the test's own event loop.
class HttpTestServer {
public:
    using Handler = std::function<HttpAnswer(const HttpRequest&)>;

    HttpTestServer()
    {
        m_server = std::make_unique<QTcpServer>();
        listen();
    }
    // A server of another kind (TLS), which the test has set up.
    explicit HttpTestServer(std::unique_ptr<QTcpServer> server)
        : m_server(std::move(server))
    {
        listen();
    }

    [[nodiscard]] quint16 port() const { return m_server->serverPort(); }
    [[nodiscard]] QString address(const QString& path,
                                  const QString& host = QStringLiteral("127.0.0.1")) const
    {
        return QStringLiteral("http://%1:%2%3").arg(host).arg(port()).arg(path);
    }
    [[nodiscard]] QUrl url(const QString& path) const { return QUrl(address(path)); }

    void serve(const QString& path, const QByteArray& body, const QByteArray& type = "text/html")
    {
        serve(path, [body, type](const HttpRequest&) { return HttpAnswer{200, type, body}; });
    }
    void serve(const QString& path, Handler handler)
    {
        m_handlers.insert(path, std::move(handler));
    }
    void serve(const QString& path, const HttpAnswer& answer)
    {
        serve(path, [answer](const HttpRequest&) { return answer; });
    }
    void redirect(const QString& path, const QByteArray& target, int status = 302)
    {
        serve(path, HttpAnswer{status, "text/plain", "moved", {"Location: " + target}});
    }
    // Keeps every answer back until so many requests are waiting at once, or the server is
    // released.
    void holdUntil(int count) { m_holdUntil = count; }

    // Each answer takes so long.
    void setDelay(std::chrono::milliseconds delay) { m_delay = delay; }

    [[nodiscard]] const QList<HttpRequest>& requests() const { return m_requests; }
    [[nodiscard]] QStringList paths() const
    {
        QStringList result;
        for (const HttpRequest& request : m_requests)
            result += request.path;
        return result;
    }
    [[nodiscard]] HttpRequest request(const QString& path) const
    {
        for (const HttpRequest& request : m_requests) {
            if (request.path == path)
                return request;
        }
        return {};
    }
    [[nodiscard]] int connections() const { return m_connections; }
    // Connections that are open now.
    [[nodiscard]] int openConnections() const { return m_openConnections; }
    // Of endless answers and those that trickle.
    [[nodiscard]] qint64 streamedBytes() const { return m_streamedBytes; }
    // The most requests that waited at once.
    [[nodiscard]] int mostWaiting() const { return m_mostWaiting; }

private:
    struct Waiting {
        QPointer<QTcpSocket> socket;
        HttpRequest request;
    };

    void listen()
    {
        if (!m_server->isListening())
            m_server->listen(QHostAddress::LocalHost);
        QObject::connect(
            m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(), [this] {
                while (QTcpSocket* socket = m_server->nextPendingConnection()) {
                    ++m_connections;
                    ++m_openConnections;
                    QObject::connect(socket, &QTcpSocket::readyRead, socket,
                                     [this, socket] { read(socket); });
                    QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, socket] {
                        --m_openConnections;
                        m_input.remove(socket);
                        socket->deleteLater();
                    });
                    read(socket);
                }
            });
    }

    void read(QTcpSocket* socket)
    {
        QByteArray& input = m_input[socket];
        input += socket->readAll();
        qsizetype end = 0;
        while ((end = input.indexOf("\r\n\r\n")) >= 0) {
            HttpRequest request;
            const QList<QByteArray> lines = input.left(end).split('\n');
            input.remove(0, end + 4);
            request.path = QString::fromLatin1(lines.first().split(' ').value(1));
            for (const QByteArray& line : lines.mid(1)) {
                const qsizetype colon = line.indexOf(':');
                request.headers.insert(QString::fromLatin1(line.left(colon)).toLower(),
                                       QString::fromLatin1(line.mid(colon + 1).trimmed()));
            }
            m_requests += request;
            m_waiting += Waiting{socket, request};
            m_mostWaiting = qMax(m_mostWaiting, int(m_waiting.size()));
        }
        if (m_waiting.size() >= m_holdUntil) {
            // Once full, answers flow.
            m_holdUntil = 0;
            for (const Waiting& waiting : std::exchange(m_waiting, {})) {
                if (m_delay.count() > 0)
                    QTimer::singleShot(m_delay, m_server.get(),
                                       [this, waiting] { answer(waiting); });
                else
                    answer(waiting);
            }
        }
    }

    void answer(const Waiting& waiting)
    {
        if (!waiting.socket)
            return;
        const QString path = waiting.request.path.section(QLatin1Char('?'), 0, 0);
        const Handler handler = m_handlers.value(waiting.request.path, m_handlers.value(path));
        const HttpAnswer answer =
            handler ? handler(waiting.request) : HttpAnswer{404, "text/html", "<p>Nothing here"};
        if (answer.delivery == HttpAnswer::Delivery::Never)
            return;
        QByteArray output = "HTTP/1.1 " + QByteArray::number(answer.status) + " Status\r\n";
        if (!answer.type.isEmpty())
            output += "Content-Type: " + answer.type + "\r\n";
        output += answer.hasLength()
                      ? "Content-Length: " + QByteArray::number(answer.body.size()) + "\r\n"
                      : QByteArray("Connection: close\r\n");
        for (const QByteArray& header : answer.headers)
            output += header + "\r\n";
        output += "\r\n";
        using Delivery = HttpAnswer::Delivery;
        if (answer.delivery == Delivery::Whole || answer.delivery == Delivery::UntilClosed)
            output += answer.body;
        else if (answer.delivery == Delivery::CutShort)
            output += answer.body.left(answer.body.size() / 2);
        waiting.socket->write(output);
        if (answer.delivery == Delivery::CutShort || answer.delivery == Delivery::UntilClosed)
            waiting.socket->disconnectFromHost();
        else if (answer.delivery == Delivery::Endless)
            streamWithoutEnd(waiting.socket, answer.body);
        else if (answer.delivery == Delivery::Slow || answer.delivery == Delivery::Trickle)
            trickle(waiting.socket, answer);
    }

    void streamWithoutEnd(QTcpSocket* socket, const QByteArray& body)
    {
        const auto more = [this, socket, body] {
            while (socket->state() == QAbstractSocket::ConnectedState &&
                   socket->bytesToWrite() < bufferedBytes)
                m_streamedBytes += socket->write(body);
        };
        QObject::connect(socket, &QTcpSocket::bytesWritten, socket, more);
        more();
    }

    void trickle(QTcpSocket* socket, const HttpAnswer& answer)
    {
        auto* const timer = new QTimer(socket);
        const auto sendByte = [this, timer, socket, answer, sent = qsizetype(0)]() mutable {
            if (answer.delivery == HttpAnswer::Delivery::Slow && sent == answer.body.size())
                timer->stop();
            else
                m_streamedBytes +=
                    socket->write(answer.body.sliced(sent++ % answer.body.size(), 1));
        };
        QObject::connect(timer, &QTimer::timeout, socket, sendByte);
        timer->start(std::chrono::milliseconds(2));
    }

    static constexpr qint64 bufferedBytes = 1 << 20;

    QHash<QString, Handler> m_handlers;
    QHash<QTcpSocket*, QByteArray> m_input;
    QList<HttpRequest> m_requests;
    QList<Waiting> m_waiting;
    int m_holdUntil = 0;
    int m_mostWaiting = 0;
    int m_connections = 0;
    int m_openConnections = 0;
    qint64 m_streamedBytes = 0;
    std::chrono::milliseconds m_delay{0};
    // Last, so that its sockets go first.
    std::unique_ptr<QTcpServer> m_server;
};

} // namespace test
