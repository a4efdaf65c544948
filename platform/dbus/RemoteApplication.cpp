// SPDX-License-Identifier: MIT
#include "platform/dbus/RemoteApplication.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/dbus/BusText.h"

#include <QtDBus/QDBusArgument>

namespace platform {

namespace {

const QString versionProperty = QStringLiteral("Version");

} // namespace

RemoteApplication::RemoteApplication(std::shared_ptr<BusConnection> bus, QString busName,
                                     const BusInterface& interface, const CallLimits& limits)
    : m_bus(std::move(bus))
    , m_busName(std::move(busName))
    , m_interface(interface)
    , m_limits(limits)
{
}

std::optional<QDBusMessage> RemoteApplication::call(const Call& call, Error* error)
{
    Error failure;
    std::optional<QDBusMessage> reply = send(call, &failure);
    if (reply)
        setLastError(std::nullopt);
    else
        fail(failure, error);
    return reply;
}

bool RemoteApplication::fail(const Error& failure, Error* error)
{
    setLastError(failure);
    setError(error, failure);
    return false;
}

std::optional<QDBusMessage> RemoteApplication::send(const Call& call, Error* error)
{
    if (!m_bus->isConnected()) {
        setError(error, noBus());
        return std::nullopt;
    }
    // Known beforehand, so that a call without an answer can tell whether its application is gone.
    const std::optional<QString> instance =
        call.instance.isEmpty() ? runningInstance(error) : std::optional(call.instance);
    if (!instance)
        return std::nullopt;
    // By the bus name: an application that ends in between is started again.
    QDBusMessage message = QDBusMessage::createMethodCall(
        call.instance.isEmpty() ? m_busName : call.instance, m_interface.path,
        call.interface.isEmpty() ? m_interface.name : call.interface, call.member);
    message.setArguments(call.arguments);
    QDBusMessage reply = m_bus->connection().call(message, QDBus::Block, call.limit);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        setError(error, errorOf(reply, call, *instance));
        return std::nullopt;
    }
    if (reply.signature() != call.replySignature) {
        setError(error,
                 invalidAnswer(QStringLiteral("%1: \"%2\" for \"%3\"")
                                   .arg(call.member, reply.signature(), call.replySignature)));
        return std::nullopt;
    }
    return reply;
}

std::optional<QString> RemoteApplication::runningInstance(Error* error)
{
    BusConnection::Owner owner = m_bus->owner(m_busName);
    if (owner.isKnown && !owner) {
        const QDBusMessage started = m_bus->start(m_busName, m_limits.start);
        if (started.type() != QDBusMessage::ReplyMessage) {
            setError(error, startErrorOf(started));
            return std::nullopt;
        }
        owner = m_bus->owner(m_busName);
    }
    if (owner)
        return owner.uniqueName;
    setError(error, owner.isKnown ? gone() : noBus());
    return std::nullopt;
}

QString RemoteApplication::version()
{
    if (const QString known = property(versionProperty); !known.isNull())
        return known;
    const auto reply = call({.member = QStringLiteral("GetAll"),
                             .arguments = {m_interface.name},
                             .replySignature = QStringLiteral("a{sv}"),
                             .limit = m_limits.question,
                             .interface = QStringLiteral("org.freedesktop.DBus.Properties")});
    if (!reply)
        return {};
    const auto properties = qdbus_cast<QVariantMap>(reply->arguments().constFirst());
    const QVariant version = properties.value(versionProperty);
    if (version.metaType().id() != QMetaType::QString || version.toString().isEmpty()) {
        fail(invalidAnswer(versionProperty));
        return {};
    }
    const std::lock_guard lock(m_mutex);
    m_properties = properties;
    return version.toString();
}

QString RemoteApplication::property(const QString& name) const
{
    const std::lock_guard lock(m_mutex);
    return m_properties.value(name).toString();
}

void RemoteApplication::activate()
{
    static_cast<void>(call({.member = QStringLiteral("Activate"),
                            .arguments = {},
                            .replySignature = {},
                            .limit = m_limits.question}));
}

bool RemoteApplication::canSend(const QStringList& texts, Error* error) const
{
    for (const QString& text : texts) {
        if (isBusText(text))
            continue;
        setError(error,
                 scriptingError(ScriptingErrorCode::UnsendableArgument,
                                localizedString("\u201c%1\u201d cannot be said to %2.")
                                    .arg(text.left(longestShownText), m_interface.displayName)));
        return false;
    }
    return true;
}

std::optional<Error> RemoteApplication::lastError() const
{
    const std::lock_guard lock(m_mutex);
    return m_lastError;
}

void RemoteApplication::setLastError(const std::optional<Error>& error)
{
    const std::lock_guard lock(m_mutex);
    m_lastError = error;
}

} // namespace platform
