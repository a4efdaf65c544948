// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Paths taken apart as text, by the platform's rules; nothing is looked up on disk.
namespace platform {

// The part after the last separator; trailing separators do not count.
[[nodiscard]] QString lastPathComponent(const QString& path);

// The part of the last component after its last dot. Empty when there is no dot, when the dot is the
// component's first or last character, when the rest would be "." or "..", and when a blank stands in it:
// what follows a full stop in a sentence is no extension.
[[nodiscard]] QString pathExtension(const QString& path);

// The path without its extension and the dot before it.
[[nodiscard]] QString stringByDeletingPathExtension(const QString& path);

} // namespace platform
