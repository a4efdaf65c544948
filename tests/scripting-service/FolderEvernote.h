// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/EvernoteApplication.h"

namespace test {

// An Evernote whose notebooks are the ENEX files of a folder, by name. It reads files of the
// simplest form alone and takes their notes as text, so that it shares no code with what it is to
// test. A file without an end has a problem; encrypted notes are warned of.
class FolderEvernote : public platform::EvernoteApplication {
public:
    // holdFile: an export does not begin before this file is there; empty for none.
    FolderEvernote(const QString& folder, QString holdFile);

    [[nodiscard]] QString version() override { return QStringLiteral("10.2"); }
    void activate() override {}
    [[nodiscard]] std::vector<std::shared_ptr<platform::EvernoteNotebook>> notebooks() override
    {
        return m_notebooks;
    }
    // 'enex': the notes as they stand in their files, in one. 'exht': a folder with a page for each
    // note.
    [[nodiscard]] bool
    exportNotes(const std::vector<std::shared_ptr<platform::EvernoteNote>>& notes,
                const QString& to, ExportTags tags, ExportFormat format,
                platform::Error* error) override;
    [[nodiscard]] QStringList lastExportWarnings() override { return m_warnings; }

private:
    const QString m_holdFile;
    std::vector<std::shared_ptr<platform::EvernoteNotebook>> m_notebooks;
    QStringList m_warnings;
};

} // namespace test
