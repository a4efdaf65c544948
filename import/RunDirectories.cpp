// SPDX-License-Identifier: MIT
#include "import/RunDirectories.h"

#include "platform/core/StandardDirectories.h"
#include "platform/scripting/QuilleryIdentifiers.h"

namespace {

// The sandboxed edition's own Application Support folder.
QString containerSupport(const QString& library, const QString& bundleIdentifier)
{
    return QStringLiteral("%1/Containers/%2/Data/Library/Application Support").arg(library, bundleIdentifier);
}

} // namespace

RunDirectories RunDirectories::standard()
{
    using platform::StandardDirectories;
    return {StandardDirectories::temporary(), StandardDirectories::library(),
            StandardDirectories::applicationSupport(), {}};
}

QString RunDirectories::filesPathFor(const QString& bundleIdentifier) const
{
    if (bundleIdentifier == platform::quillery::identifier)
        return temporary.isEmpty() ? QString() : temporary + QStringLiteral("/Evernote");
    return containerSupport(library, bundleIdentifier) + QStringLiteral("/Quillery 3/LibraryImport/Evernote");
}

QString RunDirectories::logFolderFor(const QString& bundleIdentifier) const
{
    if (!log.isEmpty())
        return log;
    const QString base = bundleIdentifier == platform::quillery::identifier
                             ? applicationSupport
                             : containerSupport(library, bundleIdentifier);
    return base + QStringLiteral("/Quillery 3/Logs");
}
