// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dbus/RemoteApplication.h"
#include "platform/scripting/EvernoteApplication.h"

namespace platform {

// Evernote on the session bus. May be used on every thread; each call waits for its answer.
//
// Notebooks and notes belong to the instance of Evernote that listed them: identifiers mean nothing
// to the next one. When that instance is gone, calls about them fail.
class DBusEvernoteApplication : public EvernoteApplication {
public:
    explicit DBusEvernoteApplication(const std::shared_ptr<BusConnection>& bus,
                                     const CallLimits& limits = {},
                                     const QString& busName = evernoteBundleIdentifier);

    // Asked once; null when Evernote did not say, see lastError().
    [[nodiscard]] QString version() override;
    void activate() override;
    // Names and numbers of notes come with the list; the notes of a notebook are one call. Empty
    // with lastError() when Evernote did not answer, as are the notes of a notebook.
    [[nodiscard]] std::vector<std::shared_ptr<EvernoteNotebook>> notebooks() override;
    // Takes notes of this application alone. Waits for as long as Evernote takes. Errors are in
    // ScriptingBridgeErrorDomain.
    [[nodiscard]] bool exportNotes(const std::vector<std::shared_ptr<EvernoteNote>>& notes,
                                   const QString& to, ExportTags tags, ExportFormat format,
                                   Error* error = nullptr) override;
    [[nodiscard]] QStringList lastExportWarnings() override;
    [[nodiscard]] std::optional<Error> lastError() override;

private:
    const std::shared_ptr<RemoteApplication> m_remote;
    std::mutex m_mutex;
    // Which instance listed the notebooks last: an export of no notes is its.
    QString m_instance;
    QStringList m_exportWarnings;
};

} // namespace platform
