// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QUrl>

#include <optional>

// Aliases are symbolic links and the alias files of macOS. URLs are file URLs; errors are the platform's.

// Whether the flag could be read, and on success the flag itself in the place given, if one is.
[[nodiscard]] bool isAlias(bool* flag, const QUrl& url, platform::Error* error = nullptr);

// The flag; false when it cannot be read.
[[nodiscard]] bool isAliasAtURL(const QUrl& url);

// The item that an alias leads to, found without asking the user. None, with the error, when the item is no
// alias or its original is not there.
[[nodiscard]] std::optional<QUrl> originalURLForAliasAtURL(const QUrl& url, platform::Error* error = nullptr);
