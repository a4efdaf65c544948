// SPDX-License-Identifier: MIT
#include "platform/dbus/BusProbe.h"

#include "platform/files/SystemCalls.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QStringList>

#include <cerrno>
#include <cstring>
#include <optional>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform {

namespace {

// One address of a list, such as "unix:path=/run/user/1000/bus,guid=0123"; values are escaped as
// in URLs.
struct BusAddress {
    explicit BusAddress(const QString& text)
        : transport(text.section(QLatin1Char(':'), 0, 0))
    {
        const QStringList pairs = text.section(QLatin1Char(':'), 1).split(QLatin1Char(','));
        for (const QString& pair : pairs) {
            const QByteArray value = pair.section(QLatin1Char('='), 1).toUtf8();
            values.insert(pair.section(QLatin1Char('='), 0, 0),
                          QByteArray::fromPercentEncoding(value));
        }
    }

    QString transport;
    QHash<QString, QByteArray> values;
};

// The name of the socket as the system has it; none for an address of any other kind.
std::optional<QByteArray> socketName(const BusAddress& address)
{
    if (address.transport != QLatin1String("unix"))
        return std::nullopt;
    if (address.values.contains(QStringLiteral("path")))
        return address.values.value(QStringLiteral("path"));
    // Of no file; a zero byte goes before it.
    if (address.values.contains(QStringLiteral("abstract")))
        return QByteArray(1, '\0') + address.values.value(QStringLiteral("abstract"));
    return std::nullopt;
}

bool waitFor(int socket, short event, const QDeadlineTimer& deadline)
{
    pollfd watched = {socket, event, 0};
    for (;;) {
        const int ready = ::poll(&watched, 1, static_cast<int>(deadline.remainingTime()));
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
    }
}

enum class Greeting { NobodyThere, NoAnswer, Answered };

Greeting greet(const QByteArray& name, const QDeadlineTimer& deadline)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (name.isEmpty() || name.size() > qsizetype(sizeof address.sun_path))
        return Greeting::NobodyThere;
    std::memcpy(address.sun_path, name.constData(), static_cast<size_t>(name.size()));
    const auto length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<size_t>(name.size()));
    const system::Descriptor socket(
        ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // Where many wait to connect, a bus that lives takes them soon.
    while (::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), length) != 0) {
        if (errno != EAGAIN)
            return Greeting::NobodyThere;
        if (deadline.hasExpired())
            return Greeting::NoAnswer;
        ::usleep(1000);
    }
    // A connection begins with a zero byte, then the client names itself. What the answer is, the
    // bus's library will see for itself.
    const QByteArray greeting =
        QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(::geteuid()).toHex() + "\r\n";
    char byte = 0;
    const bool isAnswered =
        ::send(socket.number(), greeting.constData(), static_cast<size_t>(greeting.size()),
               MSG_NOSIGNAL) == greeting.size() &&
        waitFor(socket.number(), POLLIN, deadline) && ::recv(socket.number(), &byte, 1, 0) == 1;
    return isAnswered ? Greeting::Answered : Greeting::NoAnswer;
}

} // namespace

bool busAnswers(const QString& address, int limit)
{
    const QDeadlineTimer deadline(limit);
    // The bus's library takes the first of a list that it can connect to.
    const QStringList addresses = address.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& one : addresses) {
        const std::optional<QByteArray> name = socketName(BusAddress(one));
        const Greeting greeting = name ? greet(*name, deadline) : Greeting::Answered;
        if (greeting != Greeting::NobodyThere)
            return greeting == Greeting::Answered;
    }
    return false;
}

} // namespace platform
