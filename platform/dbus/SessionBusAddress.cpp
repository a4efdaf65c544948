// SPDX-License-Identifier: MIT
#include "platform/dbus/SessionBusAddress.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

bool isOwnSocket(const QString& path)
{
    struct stat status = {};
    return lstat(QFile::encodeName(path).constData(), &status) == 0 && S_ISSOCK(status.st_mode) &&
           status.st_uid == geteuid();
}

} // namespace

QString sessionBusAddress()
{
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString socket = QDir::cleanPath(runtime + QStringLiteral("/bus"));
    if (!QDir::isAbsolutePath(runtime) || !isOwnSocket(socket))
        return {};
    // Addresses write what is no letter, digit or one of a few marks in hexadecimal.
    return QStringLiteral("unix:path=") +
           QString::fromLatin1(QUrl::toPercentEncoding(socket, "/", "~"));
}

} // namespace platform
