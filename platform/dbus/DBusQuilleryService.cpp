// SPDX-License-Identifier: MIT
#include "platform/dbus/DBusQuilleryService.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/dbus/QuilleryErrorNames.h"

#include <QDir>

namespace platform {

DBusQuilleryService::DBusQuilleryService(std::shared_ptr<QuilleryApplication> application,
                                         const QDBusConnection& connection,
                                         const QString& libraryFolder)
    : ServiceObject(quilleryBusInterface(), connection)
    , m_application(std::move(application))
{
    m_queue.setMaxConcurrentOperationCount(1);
    serveProperty(QStringLiteral("Version"), [this] { return m_application->version(); });
    serveProperty(QStringLiteral("LibraryFolder"), [libraryFolder] { return libraryFolder; });
    serveMethod(QStringLiteral("Activate"), {}, [this](const QDBusMessage& call) {
        m_application->activate();
        answer(call);
    });
    serveMethod(QStringLiteral("ImportFiles"), QStringLiteral("asusisias"),
                [this](const QDBusMessage& call) { importFiles(call); });
}

DBusQuilleryService::~DBusQuilleryService()
{
    refuseImports();
    m_queue.waitUntilAllOperationsAreFinished();
}

void DBusQuilleryService::importFiles(const QDBusMessage& call)
{
    const QVariantList arguments = call.arguments();
    if (arguments[1].toUInt() != static_cast<quint32>(QuilleryApplication::ImportMode::Copy)) {
        refuseArguments(call, QStringLiteral("No such mode: %1").arg(arguments[1].toUInt()));
        return;
    }
    for (const QString& path : arguments[0].toStringList()) {
        // This program's current folder is not the caller's.
        if (!QDir::isAbsolutePath(path)) {
            refuseArguments(call, QStringLiteral("Not an absolute path: ") + path);
            return;
        }
    }
    m_queue.addOperationWithBlock([this, call] { carryOut(call); });
}

void DBusQuilleryService::carryOut(const QDBusMessage& call)
{
    if (m_refusesImports) {
        refuse(call, QStringLiteral("Ending"),
               localizedString("Quillery is ending and takes no more imports."));
        return;
    }
    const QVariantList arguments = call.arguments();
    Error error;
    if (m_application->importFiles(
            arguments[0].toStringList(), QuilleryApplication::ImportMode(arguments[1].toUInt()),
            arguments[2].toString(), arguments[3].toInt(), arguments[4].toString(),
            arguments[5].toInt(), arguments[6].toStringList(), &error))
        answer(call);
    else
        refuse(call, quilleryErrorName(error), error.localizedDescription());
}

} // namespace platform
