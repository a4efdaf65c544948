// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/dbus/SessionBusAddress.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <mutex>
#include <optional>

namespace platform {

// A connection of our own to the session bus, and what the bus itself can be asked. Opened at first
// use; once lost it stays lost, so that whoever begins something new takes a new one. May be used
// on every thread; each question waits for the bus, for a limited time.
class BusConnection {
public:
    // limit: for an answer of the bus, in milliseconds.
    explicit BusConnection(QString address = sessionBusAddress(), int limit = 25000);
    ~BusConnection();
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    // Why there is none, says the system's log, once.
    [[nodiscard]] bool isConnected();
    // There was a connection at first.
    [[nodiscard]] bool wasConnected();
    [[nodiscard]] QDBusConnection connection();

    struct Owner {
        QString uniqueName;   // empty where nobody owns the name
        bool isKnown = false; // the bus did answer
        explicit operator bool() const { return !uniqueName.isEmpty(); }
    };
    // The connection that owns a bus name, or a unique name.
    [[nodiscard]] Owner owner(const QString& name);
    // The bus knows how to start the application that owns the name.
    [[nodiscard]] bool isActivatable(const QString& name);
    // Has the bus start it. limit: in milliseconds. The answer is the bus's own, an error message
    // perhaps.
    [[nodiscard]] QDBusMessage start(const QString& name, int limit);

    enum class Claim { Owned, Taken, NoBus };
    // Becomes the owner of a name. Nobody can take it away, and nobody queues for it.
    [[nodiscard]] Claim claimName(const QString& name);
    // What was sent to the name before this returns has arrived, and waits in the event loop.
    void releaseName(const QString& name);
    // Returns when everything that was sent before has left, or the connection is lost.
    void flush();

private:
    [[nodiscard]] QDBusMessage ask(const QString& member, const QVariantList& arguments, int limit);

    const QString m_address;
    const int m_limit;
    const QString m_name;
    std::once_flag m_opened;
    bool m_wasConnected = false;
};

} // namespace platform
