// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

enum class PackageState {
    SelfContained,
    LeadsOut, // holds a link that may lead out of it, or a pipe, socket or device
    Unreadable
};

// Looks through a folder for what is neither file nor folder. A link must be relative and stay inside; one
// that climbs after it has gone down counts as leading out, because it may have gone down through another
// link.
[[nodiscard]] PackageState packageState(const QString& folder);

} // namespace platform
