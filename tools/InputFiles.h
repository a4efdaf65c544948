// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

// The file can be imported as far as that shows without reading it: it is there, a regular file, and may be
// read. Asked before anything is replaced, so that a mistyped name costs nothing.
[[nodiscard]] bool isReadableFile(const QString& path, platform::Error* error);
