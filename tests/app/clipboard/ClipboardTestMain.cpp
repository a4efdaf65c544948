// SPDX-License-Identifier: MIT
#include "app/clipboard/ClipboardFixture.h"
#include "app/clipboard/VirtualDisplay.h"
#include "support/ScratchFolder.h"

#include <QApplication>

#include <cstdlib>

int main(int argc, char** argv)
{
    ::testing::InitGoogleMock(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    const test::ScratchFolder folder;
    setenv("HOME", qPrintable(folder.path()), 1);
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        unsetenv(variable);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    unsetenv("WAYLAND_DISPLAY");
    setenv("XDG_RUNTIME_DIR", qPrintable(folder.path()), 1);
    setenv("LC_ALL", "C.UTF-8", 1);

    // Another display than the user's, whose clipboard is not to be touched.
    const test::VirtualDisplay display;
    setenv("QT_QPA_PLATFORM", display.isOpen() ? "xcb" : "offscreen", 1);
    setenv("DISPLAY", display.name().constData(), 1);
    ClipboardFixture::hasDisplay = display.isOpen();
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
