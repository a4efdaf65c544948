// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The notes application's encrypted items, by index. The two tables number sound and movie the
// other way round; both numberings are in use.

// The index of a file extension; 2, the document's, for one that is no encrypted item's.
[[nodiscard]] int encryptedItemTypeForExtension(const QString& extension);
// The extension of an index, empty outside the table; index 0 is a placeholder.
[[nodiscard]] QString encryptedItemExtensionForType(int type);
// The name of a kind for the user; empty where there is none.
[[nodiscard]] QString encryptedItemDisplayNameForType(int type);
