// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/BusConnection.h"
#include "platform/dbus/DBusQuilleryApplication.h"
#include "platform/scripting/QuilleryIdentifiers.h"
#include "support/PrivateBus.h"
#include "tools/CommandFixture.h"

namespace test {

// Runs programs on a bus of their own.
class BusCommandTest : public CommandTest {
protected:
    void TearDown() override;

    // Whatever is started from now on finds this bus. A second call starts another.
    void startBus(const QHash<QString, QStringList>& services = {});
    // The service program of the tests; returns when it owns its name.
    QProcess& startService(const QStringList& arguments);
    // vupuge-library with the library "lib" and these options; returns when it owns its name.
    QProcess& startLibrary(const QStringList& arguments = {});
    [[nodiscard]] QStringList libraryCommand(const QStringList& arguments = {}) const;

    [[nodiscard]] std::shared_ptr<platform::BusConnection> connect() const
    {
        return std::make_shared<platform::BusConnection>(m_bus->address());
    }
    [[nodiscard]] platform::DBusQuilleryApplication quillery() const
    {
        return {connect(), platform::quillery::identifier};
    }
    [[nodiscard]] bool isOwned(const QString& name) const
    {
        return bool(connect()->owner(name));
    }

    std::unique_ptr<PrivateBus> m_bus;
    std::vector<std::unique_ptr<QProcess>> m_services;
};

} // namespace test
