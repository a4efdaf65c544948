// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace platform {

// The URL that the text is, by the strict rules: only characters that may stand in a URL, "%" only before two
// hexadecimal digits, at most one "#", brackets only round an IPv6 host. None for anything else, the empty
// text included. A scheme is not asked for. QUrl writes scheme and host in small letters and takes back
// escapes that were not needed.
[[nodiscard]] std::optional<QUrl> urlWithString(const QString& text);

// The URL as text that is plain ASCII; empty without a URL.
[[nodiscard]] QString absoluteStringOfUrl(const QUrl& url);

} // namespace platform
