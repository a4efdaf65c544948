// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// Whether a bus answers the first word of a connection within a time, in milliseconds. The bus's
// library waits for that answer without end, and every other connection of the process with it, so
// an address is tried here first. Addresses other than sockets of this machine are taken on trust.
[[nodiscard]] bool busAnswers(const QString& address, int limit);

} // namespace platform
