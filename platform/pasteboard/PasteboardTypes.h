// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The names of what a pasteboard may hold: those of old, and the uniform types that took their place.
namespace platform {

inline const QString pasteboardTypeString = QStringLiteral("NSStringPboardType");
inline const QString pasteboardTypeUrl = QStringLiteral("Apple URL pasteboard type");

inline const QString pasteboardUniformTypeUrl = QStringLiteral("public.url");
inline const QString pasteboardUniformTypeUrlName = QStringLiteral("public.url-name");
inline const QString pasteboardUniformTypeText = QStringLiteral("public.text");
inline const QString pasteboardUniformTypeUtf8Text = QStringLiteral("public.utf8-plain-text");
inline const QString pasteboardUniformTypeHtml = QStringLiteral("public.html");
inline const QString pasteboardUniformTypeRtf = QStringLiteral("public.rtf");

// The uniform type that macOS makes of a pasteboard type that nobody declared: "dyn.a" and, in a base 32 of
// its own, the text "?0=6:4=" with the type.
[[nodiscard]] QString uniformTypeForPasteboardType(const QString& type);

} // namespace platform
