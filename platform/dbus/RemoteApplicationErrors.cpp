// SPDX-License-Identifier: MIT
//
// What can go wrong with a call, as errors.
#include "platform/core/LocalizedStrings.h"
#include "platform/dbus/RemoteApplication.h"

namespace platform {

namespace {

using Code = ScriptingErrorCode;

bool isBusError(const QDBusMessage& reply, std::initializer_list<const char*> names)
{
    static const QString prefix = QStringLiteral("org.freedesktop.DBus.Error.");
    const QString name = reply.errorName();
    return name.startsWith(prefix) &&
           std::any_of(names.begin(), names.end(), [&](const char* candidate) {
               return name.mid(prefix.size()) == QLatin1String(candidate);
           });
}

} // namespace

Error RemoteApplication::startErrorOf(const QDBusMessage& reply) const
{
    if (!m_bus->isConnected())
        return noBus();
    if (isBusError(reply, {"ServiceUnknown", "NameHasNoOwner"})) {
        return scriptingError(
            Code::NotInstalled,
            localizedString("%1 is neither running nor installed.").arg(m_interface.displayName));
    }
    return scriptingError(Code::NotStarted, localizedString("%1 could not be started: %2")
                                                .arg(m_interface.displayName,
                                                     reply.errorMessage().left(longestShownText)));
}

Error RemoteApplication::errorOf(const QDBusMessage& reply, const Call& call,
                                 const QString& instance) const
{
    if (!m_bus->isConnected())
        return noBus();
    if (isBusError(reply, {"ServiceUnknown", "NameHasNoOwner"}))
        return gone();
    if (isBusError(reply, {"NoReply", "Timeout", "TimedOut"})) {
        const BusConnection::Owner owner = m_bus->owner(instance);
        if (!owner)
            return owner.isKnown ? gone() : noBus();
        return scriptingError(Code::NoAnswer,
                              localizedString("%1 does not answer.").arg(m_interface.displayName));
    }
    const QString text = reply.errorMessage().left(longestShownText);
    if (m_interface.ownError && reply.errorName().startsWith(m_interface.errorPrefix)) {
        const QString name = reply.errorName().mid(m_interface.errorPrefix.size());
        if (const std::optional<Error> known = m_interface.ownError(name, text))
            return *known;
    }
    if (isBusError(reply, {"UnknownMethod", "UnknownInterface", "UnknownObject", "UnknownProperty",
                           "InvalidArgs", "InvalidSignature"})) {
        return scriptingError(
            Code::NotUnderstood,
            localizedString("%1 does not understand what it was asked (%2).")
                .arg(m_interface.displayName, text.isEmpty() ? call.member : text));
    }
    return scriptingError(Code::Refused, text.isEmpty()
                                             ? localizedString("%1 refused what it was asked (%2).")
                                                   .arg(m_interface.displayName,
                                                        reply.errorName().left(longestShownText))
                                             : text);
}

Error RemoteApplication::noBus() const
{
    if (!m_bus->wasConnected()) {
        return scriptingError(
            Code::NoBus,
            localizedString("There is no session bus through which %1 could be reached.")
                .arg(m_interface.displayName));
    }
    return scriptingError(
        Code::BusLost,
        localizedString("The connection to the session bus was lost before %1 answered.")
            .arg(m_interface.displayName));
}

Error RemoteApplication::gone() const
{
    return scriptingError(
        Code::Gone, localizedString("%1 ended before it answered.").arg(m_interface.displayName));
}

Error RemoteApplication::invalidAnswer(const QString& detail) const
{
    return scriptingError(Code::InvalidAnswer,
                          localizedString("%1 gave an answer that cannot be understood (%2).")
                              .arg(m_interface.displayName, detail.left(longestShownText)));
}

} // namespace platform
