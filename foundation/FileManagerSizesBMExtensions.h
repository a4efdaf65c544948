// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QUrl>

#include <optional>

// Sizes in bytes of what files hold, not of the room that they take. Links count as themselves, a few bytes,
// and are never followed. Memory does not grow with the number of files.

// The size of a file; of a folder or package, the sum of what is visible in it, to any depth. Hidden items
// (by a dot or by their invisible flag) are not counted, nor is what a folder within that cannot be read
// whole would add. None, with the error, when the item itself, or one of its immediate items, cannot be read.
[[nodiscard]] std::optional<quint64> sizeOfFileAtURLOutError(const QUrl& url, platform::Error* error = nullptr);

// The same; 0 when that gives nothing.
[[nodiscard]] quint64 sizeOfFileAtURL(const QUrl& url);
