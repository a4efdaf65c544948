// SPDX-License-Identifier: MIT
#include "tools/BusCommandFixture.h"

#include "tools/BlockedOutput.h"

namespace test {

namespace {

// Milliseconds; generous, because others may want the processors too.
constexpr int patience = 60000;

} // namespace

void BusCommandTest::TearDown()
{
    for (const auto& service : m_services) {
        service->kill();
        service->waitForFinished(patience);
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

void BusCommandTest::startBus(const QHash<QString, QStringList>& services)
{
    m_bus = std::make_unique<PrivateBus>();
    for (auto service = services.begin(); service != services.end(); ++service)
        m_bus->addService(service.key(), service.value());
    m_bus->start();
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus->address().toUtf8());
}

QProcess& BusCommandTest::startService(const QStringList& arguments)
{
    m_services.push_back(std::make_unique<QProcess>());
    QProcess& service = *m_services.back();
    endWithTest(service);
    service.start(text(SCRIPTING_SERVICE), arguments);
    while (!service.canReadLine() && service.waitForReadyRead(patience)) {
    }
    EXPECT_EQ(service.readLine(), "ready\n");
    return service;
}

QStringList BusCommandTest::libraryCommand(const QStringList& arguments) const
{
    return QStringList{text(VUPUGE_LIBRARY), text("--library"), path("lib")} + arguments;
}

QProcess& BusCommandTest::startLibrary(const QStringList& arguments)
{
    m_services.push_back(std::make_unique<QProcess>());
    QProcess& service = *m_services.back();
    endWithTest(service);
    const QStringList command = libraryCommand(arguments);
    service.start(command.constFirst(), command.mid(1));
    EXPECT_TRUE(service.waitForStarted(patience));
    EXPECT_TRUE(waitUntil([this] { return isOwned(platform::quillery::identifier); }))
        << service.readAllStandardError().constData();
    return service;
}

} // namespace test
