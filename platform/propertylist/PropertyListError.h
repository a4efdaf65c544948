// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

namespace platform {

// The errors of this folder, in the domain and with the codes that macOS documents for them.
inline constexpr const char* propertyListErrorDomain = "NSCocoaErrorDomain";

enum class PropertyListErrorCode : qint64 {
    FileRead = 256,
    NoSuchFile = 260,
    FileWrite = 512,
    ReadCorrupt = 3840,
    WriteFailed = 3851,
    WriteInvalid = 3852,
    UnarchivingCorrupt = 4864,
};

// reason: a sentence in English, translated where a translation exists.
[[nodiscard]] Error propertyListError(PropertyListErrorCode code, const char* reason);
[[nodiscard]] Error propertyListError(PropertyListErrorCode code, const QString& reason);

} // namespace platform
