// SPDX-License-Identifier: MIT
#include "platform/dbus/SessionBusAddress.h"

#include "BusFixture.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using platform::sessionBusAddress;
using test::text;

class SessionBusAddressTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "");
        useRuntimeDirectory(m_folder.path());
    }
    void TearDown() override
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        qunsetenv("XDG_RUNTIME_DIR");
    }

    static void useRuntimeDirectory(const QString& path)
    {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path));
    }

    static void makeSocket(const QString& path)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(path);
        ASSERT_LT(name.size(), qsizetype(sizeof address.sun_path));
        std::copy(name.begin(), name.end(), address.sun_path);
        const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        ::close(socket);
    }

    test::ScratchFolder m_folder;
};

TEST_F(SessionBusAddressTest, TheEnvironmentsAddressComesFirst)
{
    makeSocket(m_folder.filePath("bus"));
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/run/elsewhere");
    EXPECT_EQ(sessionBusAddress(), "unix:path=/run/elsewhere");
}

TEST_F(SessionBusAddressTest, ElseItIsTheSocketInTheRuntimeDirectory)
{
    makeSocket(m_folder.filePath("bus"));
    EXPECT_EQ(sessionBusAddress(), text("unix:path=") + m_folder.filePath("bus"));
}

TEST_F(SessionBusAddressTest, ThePathIsEscapedAsAddressesWriteIt)
{
    const QString folder = m_folder.filePath("a b,\u00e9~");
    QDir().mkpath(folder);
    makeSocket(folder + text("/bus"));
    useRuntimeDirectory(folder);
    EXPECT_EQ(sessionBusAddress(), text("unix:path=") + m_folder.filePath("a%20b%2C%C3%A9%7E/bus"));
}

TEST_F(SessionBusAddressTest, WithoutEitherThereIsNoBusAndNoneIsStarted)
{
    EXPECT_EQ(sessionBusAddress(), QString());
    m_folder.write(text("bus"), "no socket");
    EXPECT_EQ(sessionBusAddress(), QString());
    qunsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(sessionBusAddress(), QString());
    useRuntimeDirectory(text("."));
    EXPECT_EQ(sessionBusAddress(), QString());
}

TEST_F(SessionBusAddressTest, ALinkToASocketIsNotOurs)
{
    makeSocket(m_folder.filePath("other"));
    ASSERT_TRUE(QFile::link(m_folder.filePath("other"), m_folder.filePath("bus")));
    EXPECT_EQ(sessionBusAddress(), QString());
}

} // namespace
