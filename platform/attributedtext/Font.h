// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace platform {

// A font as rich text names it: a family, a size in points, and traits. Nothing is drawn here, so a
// font exists when its name can be trusted to mean one: a name that fontconfig knows, or one of the
// fonts that every Mac has.
struct Font {
    QString family;
    double size = 12;
    bool bold = false;
    bool italic = false;
    // Fixed pitch; recorded so that a reader without the family picks another of its kind.
    bool monospaced = false;

    // The PostScript-like name that rich text files use: Helvetica-BoldOblique, ArialMT,
    // Menlo-Bold.
    [[nodiscard]] QString fontName() const;

    // The font with this PostScript name, full name or family; none when no such font is known.
    // size: points; 0 or less gives 12.
    [[nodiscard]] static std::optional<Font> fontNamed(const QString& name, double size);
    // The same of any name: the family and the traits of one that nobody knows are what the name's
    // end tells.
    [[nodiscard]] static Font fontWithFaceName(const QString& name, double size);
    // The user's standard font for documents: Helvetica.
    [[nodiscard]] static Font userFont(double size);
    // The font of the interface.
    [[nodiscard]] static Font systemFont(double size);
    static constexpr double systemFontSize = 13;

    friend bool operator==(const Font& left, const Font& right) = default;
};

} // namespace platform
