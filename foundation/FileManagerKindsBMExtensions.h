// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What files of an extension (without its dot) are, in words and in the user's language; the text itself when
// nothing is known of it. A text with an apostrophe is an OSType as the platform writes one: 'TEXT'.
[[nodiscard]] QString kindStringForExtension(const QString& extension);
