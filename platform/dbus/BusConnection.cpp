// SPDX-License-Identifier: MIT
#include "platform/dbus/BusConnection.h"

#include "platform/core/SystemLog.h"
#include "platform/dbus/BusProbe.h"

#include <QtDBus/QDBusError>

#include <atomic>

namespace platform {

namespace {

const QString busName = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

// The bus's answer to a request for a name: it is ours now, or was already.
constexpr uint primaryOwner = 1;
constexpr uint alreadyOwner = 4;
// Requests a name without waiting in line for it.
constexpr uint doNotQueue = 4;

// Connections of a process are told apart by name.
QString newConnectionName()
{
    static std::atomic<int> count = 0;
    return QStringLiteral("vupuge-%1").arg(++count);
}

bool isAnswer(const QDBusMessage& reply, const char* signature)
{
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.signature() == QLatin1String(signature);
}

} // namespace

BusConnection::BusConnection(QString address, int limit)
    : m_address(std::move(address))
    , m_limit(limit)
    , m_name(newConnectionName())
{
}

BusConnection::~BusConnection()
{
    QDBusConnection::disconnectFromBus(m_name);
}

QDBusConnection BusConnection::connection()
{
    std::call_once(m_opened, [this] {
        if (m_address.isEmpty() || !busAnswers(m_address, m_limit))
            return;
        const QDBusConnection opened = QDBusConnection::connectToBus(m_address, m_name);
        m_wasConnected = opened.isConnected();
        if (!m_wasConnected)
            systemLog(QStringLiteral("No connection to the session bus: ") +
                      opened.lastError().message());
    });
    return QDBusConnection(m_name);
}

bool BusConnection::isConnected()
{
    return connection().isConnected();
}

bool BusConnection::wasConnected()
{
    static_cast<void>(connection());
    return m_wasConnected;
}

QDBusMessage BusConnection::ask(const QString& member, const QVariantList& arguments, int limit)
{
    QDBusMessage question = QDBusMessage::createMethodCall(busName, busPath, busName, member);
    question.setArguments(arguments);
    return connection().call(question, QDBus::Block, limit);
}

BusConnection::Owner BusConnection::owner(const QString& name)
{
    const QDBusMessage reply = ask(QStringLiteral("GetNameOwner"), {name}, m_limit);
    if (isAnswer(reply, "s"))
        return {reply.arguments().constFirst().toString(), true};
    return {{}, reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")};
}

bool BusConnection::isActivatable(const QString& name)
{
    const QDBusMessage reply = ask(QStringLiteral("ListActivatableNames"), {}, m_limit);
    return isAnswer(reply, "as") && reply.arguments().constFirst().toStringList().contains(name);
}

QDBusMessage BusConnection::start(const QString& name, int limit)
{
    return ask(QStringLiteral("StartServiceByName"), {name, 0U}, limit);
}

BusConnection::Claim BusConnection::claimName(const QString& name)
{
    const QDBusMessage reply = ask(QStringLiteral("RequestName"), {name, doNotQueue}, m_limit);
    if (!isAnswer(reply, "u"))
        return Claim::NoBus;
    const uint result = reply.arguments().constFirst().toUInt();
    return result == primaryOwner || result == alreadyOwner ? Claim::Owned : Claim::Taken;
}

void BusConnection::releaseName(const QString& name)
{
    static_cast<void>(ask(QStringLiteral("ReleaseName"), {name}, m_limit));
}

void BusConnection::flush()
{
    // Messages keep their order, so an answer to this one says that the earlier ones have left.
    static_cast<void>(ask(QStringLiteral("GetId"), {}, m_limit));
}

} // namespace platform
