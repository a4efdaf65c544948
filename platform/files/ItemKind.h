// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

#include <optional>

namespace platform {

// What an item is by itself: a link is a link, whatever it leads to.
struct ItemKind {
    bool isDirectory = false;
    // A folder that is shown as one file: by its extension, or by the bundle flag of its Finder
    // info.
    bool isPackage = false;
    bool isSymbolicLink = false;
    // By its name, which begins with a dot, or by the invisible flag of its Finder info.
    bool isHidden = false;
};

[[nodiscard]] std::optional<ItemKind> itemKind(const QString& path, Error* error = nullptr);

// Whether folders of this extension, in any case, are packages.
[[nodiscard]] bool isPackageExtension(const QString& extension);

// The Finder flags of an item, 0 when it has none. Links have none.
[[nodiscard]] quint16 finderFlags(const QByteArray& nativePath);
inline constexpr quint16 finderFlagBundle = 0x2000;
inline constexpr quint16 finderFlagInvisible = 0x4000;
inline constexpr quint16 finderFlagAlias = 0x8000;

} // namespace platform
