// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/EvernoteApplication.h"

#include <memory>

// The Evernote of this machine: the application on the session bus where it runs or is installed,
// else the folder of exports that the settings name, where there is one. Null where there is
// neither.
[[nodiscard]] std::shared_ptr<platform::EvernoteApplication> findEvernote();
