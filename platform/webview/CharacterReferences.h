// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

namespace platform {

// The text of UTF-8 markup with its character references resolved, by the rules for attribute values: an
// ampersand that begins no reference stays ("?a=1&copy=2" is left as it is).
[[nodiscard]] QString resolvedReferences(QByteArrayView markup);

} // namespace platform
