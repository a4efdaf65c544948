// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace platform {

// The fixed names and texts of keyed archives, which writer and reader share.
namespace archive {

inline constexpr const char* archiver = "NSKeyedArchiver";
inline constexpr qint64 version = 100000;
inline constexpr int depthLimit = 256;

// A key that begins with a dollar sign gets a second one: the format's own keys begin with one.
[[nodiscard]] QString escapedKey(const QString& key);
[[nodiscard]] QString unescapedKey(const QString& key);

// The number of the object that a value of an archive refers to; none when it is no reference.
[[nodiscard]] std::optional<quint32> uidOf(const QVariant& value);

// {{x, y}, {width, height}}
[[nodiscard]] QString textFromRect(const QRectF& rect);
// The first four numbers of the text in this order; zero for those that are missing.
[[nodiscard]] QRectF rectFromText(const QString& text);

} // namespace archive

} // namespace platform
