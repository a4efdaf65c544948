// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

// Adds what one run laid out to the files folder of the runs before it: its folders under free names, its
// records with the paths that the files have there. from: a files folder with its manifest, of which the
// emptied shell is left. into: a files folder with its manifest, or nothing yet. False with an error; nothing
// of the receiving folder has changed then but folders that no record names.
[[nodiscard]] bool mergeFilesFolder(const QString& from, const QString& into,
                                    platform::Error* error = nullptr);
