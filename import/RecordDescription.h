// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/ImportManifest.h"

#include <QString>

// A record for the log: one line a key, in braces, sorted by key.
[[nodiscard]] QString recordDescription(const platform::manifest::Record& record);
