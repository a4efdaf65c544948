// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>
#include <optional>

namespace platform {

// A face of a font that is installed on this machine, under its own names.
struct InstalledFontFace {
    QString family;
    bool bold = false;
    bool italic = false;
    bool monospaced = false;
};

// By PostScript name, full name or family, in any letter case; never a substitute for it.
[[nodiscard]] std::optional<InstalledFontFace> installedFontFace(const QString& name);

// The PostScript name of a family's face; empty when the family has none like it.
[[nodiscard]] QString installedPostScriptName(const QString& family, bool bold, bool italic);

} // namespace platform
