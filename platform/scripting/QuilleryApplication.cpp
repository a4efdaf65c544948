// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryApplication.h"

namespace platform {

QuilleryApplication::~QuilleryApplication() = default;

std::optional<Error> QuilleryApplication::lastError()
{
    return std::nullopt;
}

} // namespace platform
