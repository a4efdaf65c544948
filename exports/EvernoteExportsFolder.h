// SPDX-License-Identifier: MIT
#pragma once

#include "exports/ExportedNotebook.h"
#include "platform/scripting/EvernoteApplication.h"

#include <QString>

#include <memory>

// A folder of ENEX files as an Evernote account: every file is a notebook, the folders within are
// stacks. Errors about files are the parser's and the file system's; its own are in
// EvernoteExportsErrorDomain.
class EvernoteExportsFolder : public platform::EvernoteApplication {
public:
    explicit EvernoteExportsFolder(const QString& directory);
    ~EvernoteExportsFolder() override;

    // Where the setting "EvernoteExportsFolder" says, else the folder "Evernote" in the user's
    // documents; it need not be there.
    [[nodiscard]] static QString directoryOfSettings();
    [[nodiscard]] static QString defaultDirectory();

    [[nodiscard]] const QString& directory() const { return m_directory; }

    // The latest of the versions that the files' headers name, but never one earlier than those
    // that can export as this folder does.
    [[nodiscard]] QString version() override;
    // There is nothing to bring to the front.
    void activate() override;
    // The files as they are now. What they hold is read when the first notebook is asked for it.
    [[nodiscard]] std::vector<std::shared_ptr<platform::EvernoteNotebook>> notebooks() override;

    // Takes notes of this class's notebooks, as they were when they were listed: one whose file has
    // changed since is an error. Written aside and put into place whole, where nothing may be
    // before.
    //
    // ENEX: one file in the classic form with the notes in the order given. HTML: a folder with a
    // page a note and, beside a page with attachments, their folder (see NotePage).
    [[nodiscard]] bool
    exportNotes(const std::vector<std::shared_ptr<platform::EvernoteNote>>& notes,
                const QString& to, ExportTags tags, ExportFormat format,
                platform::Error* error = nullptr) override;

    [[nodiscard]] QStringList lastExportWarnings() override { return m_exportWarnings; }
    [[nodiscard]] std::optional<platform::Error> lastError() override;

private:
    QString m_directory;
    std::shared_ptr<LastError> m_lastError;
    QStringList m_exportWarnings;
};
