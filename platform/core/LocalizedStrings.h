// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// The translation of a text for users; the English text is the key and what is shown when the
// translation tables do not have it.
[[nodiscard]] QString localizedString(const char* englishText);
[[nodiscard]] QString localizedString(const QString& englishText);

} // namespace platform
