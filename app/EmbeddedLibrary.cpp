// SPDX-License-Identifier: MIT
#include "app/EmbeddedLibrary.h"

#include "platform/core/StandardDirectories.h"
#include "platform/defaults/UserDefaults.h"

QString embeddedLibraryFolder()
{
    const std::optional<QString> setting =
        platform::UserDefaults::standard().stringForKey(QStringLiteral("QuilleryLibraryFolder"));
    return setting && !setting->isEmpty() ? *setting : defaultEmbeddedLibraryFolder();
}

QString defaultEmbeddedLibraryFolder()
{
    return platform::StandardDirectories::documents() + QStringLiteral("/Quillery Library");
}
