// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusConnection.h"
#include "platform/dbus/BusInterface.h"
#include "platform/dbus/CallLimits.h"
#include "platform/dbus/ScriptingError.h"

#include <memory>

namespace platform {

// One application on the bus: sends it calls and turns everything that can go wrong into an error.
// Starts it for a call where it does not run and the bus can. May be used on every thread.
class RemoteApplication {
public:
    RemoteApplication(std::shared_ptr<BusConnection> bus, QString busName,
                      const BusInterface& interface, const CallLimits& limits = {});

    [[nodiscard]] const QString& busName() const { return m_busName; }
    [[nodiscard]] const CallLimits& limits() const { return m_limits; }

    struct Call {
        QString member;
        QVariantList arguments;
        QString replySignature; // of the only answer that is understood
        int limit = 0;          // in milliseconds
        // The unique name of the instance that is meant; empty for the one that owns the bus name,
        // which is started when there is none.
        QString instance = {};
        // None for the application's own.
        QString interface = {};
    };
    // The answer, or none with an error.
    [[nodiscard]] std::optional<QDBusMessage> call(const Call& call, Error* error = nullptr);

    // The application's version, asked once; null when it did not say one, see lastError().
    [[nodiscard]] QString version();
    // A text that came with the version; null where there is none of that name.
    [[nodiscard]] QString property(const QString& name) const;
    // Brings the application to the front.
    void activate();

    // The error of an answer that came as promised but cannot be true. detail: for engineers.
    [[nodiscard]] Error invalidAnswer(const QString& detail) const;
    // The error of a call to, or about, an instance that is no longer there.
    [[nodiscard]] Error gone() const;
    // False with an error when a text holds what the bus cannot carry.
    [[nodiscard]] bool canSend(const QStringList& texts, Error* error) const;

    // Why the last call failed; none when it did not.
    [[nodiscard]] std::optional<Error> lastError() const;
    // For whoever finds fault with an answer or an argument. Always false.
    bool fail(const Error& failure, Error* error = nullptr);

    // What another program says is shown to people, but not without end: in UTF-16 code units.
    static constexpr qsizetype longestShownText = 500;

private:
    void setLastError(const std::optional<Error>& error);
    [[nodiscard]] std::optional<QDBusMessage> send(const Call& call, Error* error);
    [[nodiscard]] std::optional<QString> runningInstance(Error* error);
    [[nodiscard]] Error errorOf(const QDBusMessage& reply, const Call& call,
                                const QString& instance) const;
    [[nodiscard]] Error startErrorOf(const QDBusMessage& reply) const;
    [[nodiscard]] Error noBus() const;

    const std::shared_ptr<BusConnection> m_bus;
    const QString m_busName;
    const BusInterface m_interface;
    const CallLimits m_limits;
    mutable std::mutex m_mutex;
    std::optional<Error> m_lastError;
    QVariantMap m_properties;
};

} // namespace platform
