// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/ServiceObject.h"
#include "platform/operations/OperationQueue.h"
#include "platform/scripting/QuilleryApplication.h"

#include <atomic>
#include <memory>

namespace platform {

// Serves a Quillery on the bus. Imports run one after another on a thread of their own, so that
// other calls are answered meanwhile; everything else is asked on the object's thread.
class DBusQuilleryService : public ServiceObject {
public:
    // libraryFolder: where people find what was imported, if that is a folder they can look into.
    DBusQuilleryService(std::shared_ptr<QuilleryApplication> application,
                        const QDBusConnection& connection, const QString& libraryFolder = {});
    // Waits for the imports that were begun.
    ~DBusQuilleryService() override;

    // From now on an import that has not begun is refused, before anything is touched.
    void refuseImports() { m_refusesImports = true; }

private:
    void importFiles(const QDBusMessage& call);
    void carryOut(const QDBusMessage& call);

    const std::shared_ptr<QuilleryApplication> m_application;
    std::atomic<bool> m_refusesImports = false;
    OperationQueue m_queue;
};

} // namespace platform
