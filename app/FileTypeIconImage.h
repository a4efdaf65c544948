// SPDX-License-Identifier: MIT
#pragma once

#include "platform/types/FileTypeIcon.h"

#include <QImage>

// The icon as a picture of exactly its size, from the desktop's icon theme, or the widget style's
// icon of a file where the theme has none of its names. devicePixelRatio: pixels a point.
[[nodiscard]] QImage imageForFileTypeIcon(const platform::FileTypeIcon& icon,
                                          double devicePixelRatio = 1);
