// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryApplication.h"

namespace platform {

QuilleryApplication::~QuilleryApplication() = default;

} // namespace platform
