// SPDX-License-Identifier: MIT
#include "tools/RunLibrary.h"

bool RunLibrary::importFiles(const QStringList& paths, ImportMode by, const QString& to, int withRating,
                             const QString& withComments, int withLabel, const QStringList& withTags,
                             platform::Error* error)
{
    platform::Error failure;
    if (QuilleryLibraryFolder::importFiles(paths, by, to, withRating, withComments, withLabel, withTags,
                                           &failure)) {
        m_import = Import{};
        return true;
    }
    m_import = Import{failure};
    platform::setError(error, failure);
    return false;
}
