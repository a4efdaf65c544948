// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/RemoteApplication.h"
#include "platform/scripting/QuilleryApplication.h"

namespace platform {

// Quillery on the session bus: whatever program owns its bus name at the time of a call. May be
// used on every thread; each call waits for its answer.
class DBusQuilleryApplication : public QuilleryApplication {
public:
    DBusQuilleryApplication(std::shared_ptr<BusConnection> bus, const QString& bundleIdentifier,
                            const CallLimits& limits = {});

    [[nodiscard]] const QString& bundleIdentifier() const { return m_remote.busName(); }

    // Asked once; null when Quillery did not say, see lastError().
    [[nodiscard]] QString version() override;
    void activate() override;
    // Waits for as long as Quillery takes. Errors are Quillery's own (in
    // QuilleryLibraryErrorDomain) or in ScriptingBridgeErrorDomain; when Quillery or the bus went
    // away while it imported, how far it came is not known.
    [[nodiscard]] bool importFiles(const QStringList& paths, ImportMode by, const QString& to,
                                   int withRating, const QString& withComments, int withLabel,
                                   const QStringList& withTags, Error* error = nullptr) override;
    [[nodiscard]] std::optional<Error> lastError() override;

    // Where people find what was imported, as Quillery said with its version; empty where it has no
    // folder to show.
    [[nodiscard]] QString libraryFolder() const;

private:
    RemoteApplication m_remote;
};

} // namespace platform
