// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"
#include "platform/rtfd/RtfOutput.h"

#include <QHash>

#include <array>

namespace platform {

// The colours of a document in the order of their first use, from 2: number 0 is no colour, and
// Cocoa keeps number 1 for white, the paper of text without a background.
class RtfColorTable {
public:
    [[nodiscard]] int indexOf(const Color& color);
    [[nodiscard]] int indexOf(const std::optional<Color>& color)
    {
        return color ? indexOf(*color) : 0;
    }
    // The \colortbl group in 8 bits and, with exact components and their space, the
    // \expandedcolortbl group.
    void write(RtfOutput& out) const;

private:
    // Red, green, blue and alpha in hundred-thousandths, and whether the space is the calibrated
    // one.
    using Components = std::array<int, 5>;
    [[nodiscard]] static Components components(const Color& color);

    QHash<quint64, QList<int>> m_indexesByHash;
    QList<Components> m_colors;
};

} // namespace platform
