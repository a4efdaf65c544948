// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"

#include <QString>

// Gives every run in the one font family the other, in the same size and with the same traits.
void substituteFontFamily(platform::AttributedString& text, const QString& family,
                          const QString& withFontFamily);
