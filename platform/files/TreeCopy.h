// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace platform::system {

// Copies a file, a link itself, or a folder with everything in it, with modes, dates and extended
// attributes, to a path where nothing exists. 0, or the errno of the first failure with the path
// that it concerns; what was copied until then is left for the caller to remove. Pipes, sockets and
// devices are a failure (ENOTSUP).
[[nodiscard]] int copyTree(const QByteArray& from, const QByteArray& to, QByteArray& failedPath);

} // namespace platform::system
