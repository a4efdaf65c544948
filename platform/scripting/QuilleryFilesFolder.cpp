// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryFilesFolder.h"

#include "platform/scripting/QuilleryIdentifiers.h"

namespace platform {

QString QuilleryFilesFolder::version() { return quillery::embeddedVersion; }

bool QuilleryFilesFolder::importFiles(const QStringList& paths, ImportMode, const QString&, int,
                                      const QString&, int, const QStringList&, Error*)
{
    m_manifestPaths += paths;
    return true;
}

} // namespace platform
