// SPDX-License-Identifier: MIT
#include "platform/dbus/BusConnection.h"

#include "BusFixture.h"
#include "platform/dbus/DBusQuilleryApplication.h"
#include "platform/scripting/QuilleryIdentifiers.h"

#include <csignal>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using platform::BusConnection;
using test::text;
using Claim = BusConnection::Claim;
namespace quillery = platform::quillery;

constexpr int soon = 300; // milliseconds

class BusConnectionTest : public test::BusTest {
protected:
    // A socket that takes connections and never says a word; its address.
    QString muteSocket()
    {
        const QString path = m_folder.filePath("mute");
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(path);
        std::copy(name.begin(), name.end(), address.sun_path);
        m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_socket, 1), 0);
        return text("unix:path=") + path;
    }
    ~BusConnectionTest() override
    {
        if (m_socket >= 0)
            ::close(m_socket);
    }

    int m_socket = -1;
};

TEST_F(BusConnectionTest, AnAddressWithoutABusBehindItIsNoConnection)
{
    for (const char* address : {"", "disabled:", "unix:path=/nowhere/bus", "unix:path=",
                                "unix:abstract=vupuge-nobody", "unix:path=/dev/null", "nonsense"}) {
        BusConnection bus(text(address), soon);
        EXPECT_FALSE(bus.isConnected()) << address;
        EXPECT_FALSE(bus.wasConnected()) << address;
        EXPECT_FALSE(bus.owner(quillery::identifier)) << address;
        EXPECT_FALSE(bus.isActivatable(quillery::identifier)) << address;
        EXPECT_EQ(bus.claimName(quillery::identifier), Claim::NoBus) << address;
    }
}

TEST_F(BusConnectionTest, ASocketThatNeverAnswersIsNoBus)
{
    BusConnection bus(muteSocket(), soon);
    EXPECT_FALSE(bus.isConnected());
    // Nor does it keep other connections of the process from working.
    EXPECT_TRUE(connect()->isConnected());
}

TEST_F(BusConnectionTest, ASocketWithNoRoomForMoreIsNoBus)
{
    const QString address = muteSocket();
    std::vector<std::unique_ptr<BusConnection>> waiting;
    for (int count = 0; count < 4; ++count) {
        waiting.push_back(std::make_unique<BusConnection>(address, soon));
        EXPECT_FALSE(waiting.back()->isConnected());
    }
}

TEST_F(BusConnectionTest, OfAListTheFirstThatIsThereCounts)
{
    BusConnection second(text("unix:path=/nowhere;") + m_bus.address(), soon * 100);
    EXPECT_TRUE(second.isConnected());
    BusConnection mute(muteSocket() + text(";") + m_bus.address(), soon);
    EXPECT_FALSE(mute.isConnected());
}

TEST_F(BusConnectionTest, AFrozenBusIsNoBusAndNoCallWaitsForItWithoutEnd)
{
    startService({text("quillery")});
    const auto bus = std::make_shared<BusConnection>(m_bus.address(), soon);
    platform::DBusQuilleryApplication application(bus, quillery::identifier, test::impatient());
    application.activate();
    ASSERT_FALSE(application.lastError());
    m_bus.send(SIGSTOP);
    EXPECT_TRUE(application.version().isNull());
    EXPECT_EQ(test::codeOf(application.lastError()), "BusLost");
    EXPECT_FALSE(bus->owner(quillery::identifier));
    EXPECT_EQ(bus->claimName(text("com.example.Name")), Claim::NoBus);
    BusConnection late(m_bus.address(), soon);
    EXPECT_FALSE(late.isConnected());
    m_bus.send(SIGCONT);
    EXPECT_EQ(application.version(), "3.5.3");
    EXPECT_FALSE(application.lastError());
}

TEST_F(BusConnectionTest, ANameHasOneOwnerUntilThatGivesItUp)
{
    const QString name = text("com.example.Name");
    const auto first = connect();
    const auto second = connect();
    EXPECT_FALSE(first->owner(name));
    EXPECT_EQ(first->claimName(name), Claim::Owned);
    EXPECT_EQ(first->claimName(name), Claim::Owned);
    EXPECT_EQ(second->claimName(name), Claim::Taken);
    EXPECT_EQ(second->owner(name).uniqueName, first->connection().baseService());
    first->releaseName(name);
    EXPECT_FALSE(second->owner(name));
    EXPECT_EQ(second->claimName(name), Claim::Owned);
}

TEST_F(BusConnectionTest, ALostConnectionStaysLostAndANewOneIsMade)
{
    const auto first = connect();
    ASSERT_TRUE(first->isConnected());
    m_bus.kill();
    EXPECT_TRUE(waitUntil([&] { return !first->isConnected(); }));
    EXPECT_TRUE(first->wasConnected());
    test::PrivateBus other;
    other.start();
    EXPECT_FALSE(first->isConnected());
    EXPECT_TRUE(BusConnection(other.address()).isConnected());
}

} // namespace
