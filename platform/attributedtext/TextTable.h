// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"

#include <array>
#include <memory>
#include <optional>

namespace platform {

// Lengths of the text block model.
struct TextLength {
    enum class Unit { Points, Percent };
    double value = 0;
    Unit unit = Unit::Points;
    friend bool operator==(const TextLength&, const TextLength&) = default;
};

enum class TextEdge { Left = 0, Top = 1, Right = 2, Bottom = 3 };
enum class TextVerticalAlignment { Top, Middle, Bottom, Baseline };

// A table; its cells (TextTableBlock) point at it, and it is their identity.
struct TextTable {
    int columns = 1;
    std::optional<TextLength> width;
    bool collapsesBorders = false;
    bool hidesEmptyCells = false;
    std::optional<Color> backgroundColor;
    // Round the whole table, by edge; widths in points.
    std::array<double, 4> borderWidth{};
    std::array<std::optional<Color>, 4> borderColor{};
};

// What stands round a paragraph: a cell of a table, or (without a table) a plain box such as a code
// block. Paragraphs of the same cell share one object. Widths are in points, by edge.
struct TextBlock {
    std::shared_ptr<const TextTable> table; // null: a plain box
    int row = 0;
    int column = 0;
    int rowSpan = 1;
    int columnSpan = 1;

    std::optional<TextLength> width;
    std::optional<TextLength> height;
    std::array<double, 4> padding{};
    std::array<double, 4> borderWidth{};
    std::array<double, 4> margin{};
    std::array<std::optional<Color>, 4> borderColor{};
    std::optional<Color> backgroundColor;
    TextVerticalAlignment verticalAlignment = TextVerticalAlignment::Middle;
};

} // namespace platform
