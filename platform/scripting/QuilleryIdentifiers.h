// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The bundle identifiers under which Quillery is found, in the order in which they are tried.
namespace platform::quillery {

inline const QString identifier = QStringLiteral("com.brightmoor.Quillery3");
// The store's edition, which runs in a container.
inline const QString storeIdentifier = QStringLiteral("com.brightmoor.Quillery3.mac");

// The version that the embedded applications report.
inline const QString embeddedVersion = QStringLiteral("3.5.3");

} // namespace platform::quillery
