// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// The address of the user's own session bus: DBUS_SESSION_BUS_ADDRESS, else the socket "bus" in the
// user's private run-time directory. Empty when there is none. Never starts a bus, as the bus
// library's own look-up may do where there is a display.
[[nodiscard]] QString sessionBusAddress();

} // namespace platform
