// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusConnection.h"
#include "scripting-service/Faults.h"

#include <QtDBus/QDBusMessage>

#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace test {

// One of the services that programs really talk to, with faults of its own.
template <typename Service>
class FaultyService : public Service {
public:
    template <typename... Arguments>
    FaultyService(Faults faults, platform::BusConnection& bus, QString busName,
                  Arguments&&... arguments)
        : Service(std::forward<Arguments>(arguments)...)
        , m_faults(std::move(faults))
        , m_bus(bus)
        , m_busName(std::move(busName))
    {
        Service::setActivityHandler([this] {
            if (m_diesNext && Service::unansweredCalls() == 0) {
                m_bus.flush();
                die();
            }
        });
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        const auto fault = m_faults.faultOfNextCall(message.member());
        if (!fault)
            return Service::handleMessage(message, connection);
        switch (fault->kind) {
        case Faults::Kind::DieAt:
            die();
            break;
        case Faults::Kind::Hang:
            std::printf("%s\n", qPrintable(message.member()));
            std::fflush(stdout);
            return true;
        case Faults::Kind::Refuse:
            return connection.send(
                message.createErrorReply(fault->value, QStringLiteral("This is refused.")));
        case Faults::Kind::Answer:
            return connection.send(message.createReply(nonsense(fault->value)));
        case Faults::Kind::DieAfter:
            m_diesNext = true;
            break;
        case Faults::Kind::ReleaseName:
            m_bus.releaseName(m_busName);
            break;
        }
        return Service::handleMessage(message, connection);
    }

private:
    [[noreturn]] static void die()
    {
        ::kill(::getpid(), SIGKILL);
        ::_exit(1);
    }

    Faults m_faults;
    platform::BusConnection& m_bus;
    const QString m_busName;
    bool m_diesNext = false;
};

} // namespace test
