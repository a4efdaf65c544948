// SPDX-License-Identifier: MIT
#include "platform/scripting/EvernoteApplication.h"

namespace platform {

EvernoteNote::~EvernoteNote() = default;
EvernoteNotebook::~EvernoteNotebook() = default;
EvernoteApplication::~EvernoteApplication() = default;

} // namespace platform
