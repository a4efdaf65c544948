// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace platform {

// Whether someone is at work on a file: it is open for writing, in this program or another, or
// somebody holds a lock on it that keeps readers out. Nothing but regular files is ever in use.
// None when the file is not there or cannot be opened; who neither owns the file nor may take
// leases learns of locks alone.
[[nodiscard]] std::optional<bool> isFileInUse(const QString& path);

} // namespace platform
