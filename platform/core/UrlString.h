// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace platform {

// The URL that the text is, by the strict rules: what holdsUrlCharactersOnly and QUrl take. None
// for anything else, the empty text included. A scheme is not asked for. QUrl writes scheme and
// host in small letters and takes back escapes that were not needed; Url keeps them.
[[nodiscard]] std::optional<QUrl> urlWithString(const QString& text);

// Only characters that may stand in a URL, "%" only before two hexadecimal digits, at most one "#".
[[nodiscard]] bool holdsUrlCharactersOnly(QStringView text);

// The text of the URL that raw bytes make: what may not stand in a URL becomes %XX in capital
// letters. Kept are ASCII letters and digits, ! $ & ' ( ) * + , - . / : ; = ? @ _ ~, an escape that
// is one already, the first #, and the square brackets of a host that is an IPv6 address.
[[nodiscard]] QString urlTextFromBytes(const QByteArray& bytes);

// The same for the text's UTF-8. An unpaired surrogate has no bytes; it becomes the escaped
// replacement character.
[[nodiscard]] QString urlTextFromString(const QString& text);

// The URL as text that is plain ASCII; empty without a URL.
[[nodiscard]] QString absoluteStringOfUrl(const QUrl& url);

} // namespace platform
