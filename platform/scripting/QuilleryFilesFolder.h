// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/QuilleryApplication.h"

namespace platform {

// A Quillery that leaves the files and the manifest where they are, for an import later or elsewhere.
class QuilleryFilesFolder : public QuilleryApplication {
public:
    [[nodiscard]] QString version() override;
    void activate() override {}
    // Fails where a manifest is not there or does not reach to its end, as on a full disk; of what stands in
    // between nothing is read. Errors are in QuilleryLibraryErrorDomain.
    [[nodiscard]] bool importFiles(const QStringList& paths, ImportMode by, const QString& to, int withRating,
                                   const QString& withComments, int withLabel, const QStringList& withTags,
                                   Error* error = nullptr) override;

    // Every path that was taken so far.
    [[nodiscard]] const QStringList& manifestPaths() const { return m_manifestPaths; }

private:
    QStringList m_manifestPaths;
};

} // namespace platform
