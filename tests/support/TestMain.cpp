// SPDX-License-Identifier: MIT
#include "support/ScratchFolder.h"

#include <QCoreApplication>

#include <clocale>
#include <cstdlib>

namespace {

// Tests see a user of their own: no setting, folder or locale of the person who runs them.
class PrivateUser {
public:
    PrivateUser()
    {
        setenv("HOME", qPrintable(m_folder.path()), 1);
        setenv("XDG_CONFIG_HOME", qPrintable(m_folder.filePath("config")), 1);
        setenv("XDG_DATA_HOME", qPrintable(m_folder.filePath("data")), 1);
        setenv("XDG_CACHE_HOME", qPrintable(m_folder.filePath("cache")), 1);
        // Nor that person's session bus: a test that needs one starts its own.
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
        unsetenv("TMPDIR");
        setenv("LC_ALL", "en_US.UTF-8", 1);
        setenv("TZ", "UTC", 1);
        // Where the real exports and samples are, unless who runs the tests keeps them elsewhere.
        setenv("VUPUGE_SHARED_DIRECTORY", VUPUGE_SHARED_DIRECTORY, 0);
    }

private:
    test::ScratchFolder m_folder;
};

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleMock(&argc, argv);
    const PrivateUser user;
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
