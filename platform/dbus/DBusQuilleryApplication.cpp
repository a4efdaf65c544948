// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusQuilleryApplication.h"

#include <QDir>

namespace platform {

DBusQuilleryApplication::DBusQuilleryApplication(std::shared_ptr<BusConnection> bus,
                                                 const QString& bundleIdentifier,
                                                 const CallLimits& limits)
    : m_remote(std::move(bus), bundleIdentifier, quilleryBusInterface(), limits)
{
}

QString DBusQuilleryApplication::version()
{
    return m_remote.version();
}

QString DBusQuilleryApplication::libraryFolder() const
{
    const QString folder = m_remote.property(QStringLiteral("LibraryFolder"));
    return QDir::isAbsolutePath(folder) ? folder : QString();
}

void DBusQuilleryApplication::activate()
{
    m_remote.activate();
}

bool DBusQuilleryApplication::importFiles(const QStringList& paths, ImportMode by,
                                          const QString& to, int withRating,
                                          const QString& withComments, int withLabel,
                                          const QStringList& withTags, Error* error)
{
    Error unsendable;
    if (!m_remote.canSend(paths + QStringList{to, withComments} + withTags, &unsendable))
        return m_remote.fail(unsendable, error);
    return m_remote
        .call({.member = QStringLiteral("ImportFiles"),
               .arguments = {paths, static_cast<quint32>(by), to, withRating, withComments,
                             withLabel, withTags},
               .replySignature = {},
               .limit = CallLimits::work},
              error)
        .has_value();
}

std::optional<Error> DBusQuilleryApplication::lastError()
{
    return m_remote.lastError();
}

} // namespace platform
