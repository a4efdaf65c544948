// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace platform {

// The uniform type identifiers that are asked for by name.
inline const QString utTypeImage = QStringLiteral("public.image");
inline const QString utTypeMovie = QStringLiteral("public.movie");
inline const QString utTypeAudio = QStringLiteral("public.audio");
inline const QString utTypeText = QStringLiteral("public.text");
inline const QString utTypePlainText = QStringLiteral("public.plain-text");
inline const QString utTypeHtml = QStringLiteral("public.html");
inline const QString utTypeUrl = QStringLiteral("public.url");
inline const QString utTypeFileUrl = QStringLiteral("public.file-url");
inline const QString utTypeWebArchive = QStringLiteral("com.apple.webarchive");
inline const QString utTypeWebInternetLocation = QStringLiteral("com.apple.web-internet-location");

// The identifier of the type with that tag: a declared one, or a dynamic one ("dyn.a…") that holds
// the tag itself. Tags are compared whatever their case, else exactly: neither white space nor a
// MIME type's parameters are taken off. Empty for an empty tag.
[[nodiscard]] QString preferredIdentifierForMimeType(QStringView mimeType);
// extension: without its dot.
[[nodiscard]] QString preferredIdentifierForExtension(QStringView extension);

// True when a type is the other one or a special case of it. A dynamic type conforms to itself
// alone.
[[nodiscard]] bool typeConformsTo(QStringView identifier, QStringView general);

// Without its dot. A dynamic type has the extension that it was made from, or the one that the
// system's MIME database knows for the MIME type that it was made from.
[[nodiscard]] std::optional<QString> preferredExtensionForType(QStringView identifier);
[[nodiscard]] std::optional<QString> mimeTypeForType(QStringView identifier);

// The type in words: the system's MIME database's in the user's language, or ours in English; empty
// when neither has any.
[[nodiscard]] QString typeDescription(QStringView identifier);

} // namespace platform
