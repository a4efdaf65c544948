// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

// The names under which resource values are kept, see ResourceValues.h, and the way to them.
namespace platform::attributes {

inline constexpr const char* creationDate = "user.com.apple.metadata:kMDItemFSCreationDate";
inline constexpr const char* finderInfo = "user.com.apple.FinderInfo";
inline constexpr const char* finderTags = "user.com.apple.metadata:_kMDItemUserTags";
inline constexpr const char* finderComment = "user.com.apple.metadata:kMDItemFinderComment";
inline constexpr const char* finderOrigins = "user.com.apple.metadata:kMDItemWhereFroms";
inline constexpr const char* desktopTags = "user.xdg.tags";
inline constexpr const char* desktopComment = "user.xdg.comment";
inline constexpr const char* desktopOrigin = "user.xdg.origin.url";

// Finder info: 32 bytes, of which these matter here. Flags are a big-endian 16-bit number.
inline constexpr qsizetype finderInfoLength = 32;
inline constexpr qsizetype finderFlagsOffset = 8;
inline constexpr quint16 hiddenExtensionFlag = 0x0010;

// None when the file does not have it or it cannot be read.
[[nodiscard]] std::optional<QByteArray> value(int descriptor, const char* name);
[[nodiscard]] bool hasAny(int descriptor);
// Both give 0, or the errno of the failure; removing what the file does not have is success.
[[nodiscard]] int setValue(int descriptor, const char* name, const QByteArray& bytes);
[[nodiscard]] int removeValue(int descriptor, const char* name);
// The names that the file has, in this form: NUL, name, NUL, name, NUL …
[[nodiscard]] QByteArray names(int descriptor);

} // namespace platform::attributes
