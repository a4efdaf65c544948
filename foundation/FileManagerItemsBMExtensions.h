// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Questions about the item at a path. Each answers false when the file system cannot tell. Links are not
// followed.

// A folder that is no package.
[[nodiscard]] bool isDirectoryAtPath(const QString& path);

// True for every path text that itself begins with a dot, whether the item is there or not; else what the
// item says: its name begins with a dot, or its invisible flag is set.
[[nodiscard]] bool isHiddenFileAtPath(const QString& path);

[[nodiscard]] bool isSymbolicLinkAtPath(const QString& path);

// Somebody has the file open for writing, or has locked it. A link counts as what it leads to.
[[nodiscard]] bool itemIsBusyAtPath(const QString& path);
