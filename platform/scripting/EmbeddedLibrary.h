// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// The folder that stands in for the notes application's library where that is not installed: the
// setting "QuilleryLibraryFolder", else the default.
[[nodiscard]] QString embeddedLibraryFolder();

// The folder "Quillery Library" in the user's documents.
[[nodiscard]] QString defaultEmbeddedLibraryFolder();

// The setting's key.
inline const QString embeddedLibrarySetting = QStringLiteral("QuilleryLibraryFolder");

} // namespace platform
