// SPDX-License-Identifier: MIT
#include "platform/scripting/ScriptingBridge.h"

namespace platform {

ScriptingBridge::~ScriptingBridge() = default;

} // namespace platform
