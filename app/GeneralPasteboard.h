// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/Pasteboard.h"

// What lies on the clipboard. It reads there and copies nothing, so it is good until the event loop
// runs again: any program may take the clipboard over.
[[nodiscard]] platform::Pasteboard generalPasteboard();

// Puts a copy of everything on the clipboard.
void setGeneralPasteboard(const platform::Pasteboard& pasteboard);
