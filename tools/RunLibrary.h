// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/QuilleryLibraryFolder.h"

#include <optional>

// A library that remembers how the import that a run asked it for went: a run that was cancelled meanwhile
// says no more than that.
class RunLibrary : public platform::QuilleryLibraryFolder {
public:
    using platform::QuilleryLibraryFolder::QuilleryLibraryFolder;

    [[nodiscard]] bool importFiles(const QStringList& paths, ImportMode by, const QString& to, int withRating,
                                   const QString& withComments, int withLabel, const QStringList& withTags,
                                   platform::Error* error = nullptr) override;

    struct Import {
        std::optional<platform::Error> error;
    };
    // The import since this was last asked; none when the run did not get so far.
    [[nodiscard]] std::optional<Import> takeImport() { return std::exchange(m_import, std::nullopt); }

private:
    std::optional<Import> m_import;
};
