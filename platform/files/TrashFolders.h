// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace platform {

// The user's trash folders by the desktop's trash specification, whether they are there or not:
// Trash in the data directory, and on every mounted volume .Trash/<user id> and .Trash-<user id>.
[[nodiscard]] QStringList trashFolders();

} // namespace platform
