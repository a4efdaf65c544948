// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

// The bytes that a base64 text (RFC 4648, standard alphabet) stands for; every character outside the
// alphabet is skipped. None when the text is no whole number of four-character groups, padding counted, or
// when something follows the padding.
[[nodiscard]] std::optional<QByteArray> bytesFromBase64Text(const QByteArray& text);
