// SPDX-License-Identifier: MIT
#include "app/Translations.h"
#include "resources/Resources.h"
#include "support/ScratchFolder.h"

#include <QApplication>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace {

// Tests see a user of their own, who has no display and no session bus.
void becomePrivateUser(const test::ScratchFolder& folder)
{
    setenv("HOME", qPrintable(folder.path()), 1);
    setenv("XDG_CONFIG_HOME", qPrintable(folder.filePath("config")), 1);
    setenv("XDG_DATA_HOME", qPrintable(folder.filePath("data")), 1);
    setenv("XDG_CACHE_HOME", qPrintable(folder.filePath("cache")), 1);
    setenv("XDG_RUNTIME_DIR", qPrintable(folder.path()), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "en_US.UTF-8", 1);
    setenv("TZ", "UTC", 1);
    unsetenv("TMPDIR");
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
}

// The display of the tests has no window manager and says so at every window.
void logWithoutTheDisplaysRegrets(QtMsgType, const QMessageLogContext&, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleMock(&argc, argv);
    const test::ScratchFolder folder;
    becomePrivateUser(folder);
    qInstallMessageHandler(&logWithoutTheDisplaysRegrets);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    registerResources();
    installTranslations(QLocale(QLocale::English, QLocale::UnitedStates));
    return RUN_ALL_TESTS();
}
