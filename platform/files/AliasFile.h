// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QString>

#include <optional>

// Aliases: symbolic links, and the alias files of macOS, which hold bookmark data.
namespace platform {

// None, with an error, when the item is not there or cannot be examined.
[[nodiscard]] std::optional<bool> isAlias(const QString& path, Error* error = nullptr);

// The path of the item that an alias leads to. None with an error when the item is no alias
// (FileReadCorruptFileError), or when what it leads to is not there (FileNoSuchFileError). Links
// are followed to their end; an alias file is taken at its word, even when that is another alias.
[[nodiscard]] std::optional<QString> resolvedAliasPath(const QString& path, Error* error = nullptr);

// The absolute path that bookmark data names; none when it names none or is damaged.
//
// The layout is public, all numbers little-endian: "book", then the size of the header at 12, or,
// in alias files, "book" 0 "mark" 0 and the size at 16. Offsets count from the header's end, where
// that of the first table stands. A table: its size less 8, 0xFFFFFFFE, its number, the offset of
// the next table or 0, the count of entries, and of each its key, its value's offset and 0. A
// value: size, type, bytes. Key 0x1004 is the path, an array (type 0x0601) of the offsets of its
// components, which are UTF-8 texts (type 0x0101).
[[nodiscard]] std::optional<QString> pathInBookmarkData(QByteArrayView data);

} // namespace platform
