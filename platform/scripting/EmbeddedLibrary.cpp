// SPDX-License-Identifier: MIT
#include "platform/scripting/EmbeddedLibrary.h"

#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"

namespace platform {

QString embeddedLibraryFolder()
{
    const std::optional<QString> setting =
        UserDefaults::standard().stringForKey(embeddedLibrarySetting);
    return setting && !setting->isEmpty() ? *setting : defaultEmbeddedLibraryFolder();
}

QString defaultEmbeddedLibraryFolder()
{
    return StandardDirectories::documents() + QStringLiteral("/Quillery Library");
}

} // namespace platform
