// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

#include <string>
#include <string_view>

namespace platform::html {

// Appends text that is known to be valid UTF-8. The character that stands for attachments (U+FFFC)
// becomes U+FFFD: none of the page's text may pass for one.
void appendUtf8(QString& target, std::string_view utf8);

// True for valid UTF-8 without NULs and a byte order mark.
[[nodiscard]] bool isCleanUtf8(QByteArrayView bytes);

// The bytes as clean UTF-8: what is invalid becomes U+FFFD, so do NULs; a byte order mark goes.
[[nodiscard]] std::string cleanedUtf8(QByteArrayView bytes);

} // namespace platform::html
