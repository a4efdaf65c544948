// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

#include <optional>

namespace platform {

// Where an application is found on the bus once its bus name is known, and how its errors are
// called. Bus names are the bundle identifiers. The interfaces themselves are written down in
// resources/dbus.
struct BusInterface {
    QString displayName; // for people
    QString path;
    QString name;
    QString errorPrefix; // ends in "."
    // The error that one of the application's own error names stands for, prefix left out; none for
    // a name that says no more than the text does.
    std::optional<Error> (*ownError)(const QString& name, const QString& text) = nullptr;
};

// All editions of Quillery speak the same interface.
[[nodiscard]] const BusInterface& quilleryBusInterface();
[[nodiscard]] const BusInterface& evernoteBusInterface();

// The bundle identifier of the Evernote application.
inline const QString evernoteBundleIdentifier = QStringLiteral("com.evernote.Evernote");

} // namespace platform
