// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <array>

namespace platform {

// A font family that every Mac has, with the PostScript names of its faces.
struct MacFontFamily {
    const char* family;
    // Regular, bold, italic, bold italic; null where the family has no such face. The first is
    // never null.
    std::array<const char*, 4> faces;
    bool monospaced = false;
    bool oblique = false; // its slanted faces are called oblique, not italic
};

struct MacFontFace {
    const MacFontFamily* family = nullptr;
    bool bold = false;
    bool italic = false;
};

// By family name, in any letter case; null when no Mac is sure to have it.
[[nodiscard]] const MacFontFamily* macFontFamily(QStringView name);

// By family name, PostScript name or full name ("Georgia Bold Italic"), in any letter case; a
// family that is null says that there is none. Faces of other weights (HelveticaNeue-Light) count
// as the nearer of regular and bold.
[[nodiscard]] MacFontFace macFontFace(QStringView name);

} // namespace platform
