// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The text in the form in which the file system keeps names: Unicode form D. A file-system text ends at its
// first NUL, and so does this one. Unpaired surrogates, which no file system takes, stay as they are.
[[nodiscard]] QString fileSystemRepresentationString(const QString& text);

// The name under which the item at the path is shown: its last component, without its extension when the
// item says that it hides it. An item that is not there, or says nothing, shows its whole name.
[[nodiscard]] QString fileDisplayName(const QString& path);
