// SPDX-License-Identifier: MIT
#pragma once

#include "platform/htmlimport/BlockStyle.h"

#include <vector>

namespace platform::html {

// Keeps the open tables and gives each cell its place.
class TableBuilder {
public:
    explicit TableBuilder(const FontContext& fonts)
        : m_fonts(fonts)
    {
    }

    // A table that must not nest any deeper is none: its cells become plain blocks.
    [[nodiscard]] bool canEnterTable() const;
    void enterTable(const xmlNode* element, const StyleDeclarations& declared,
                    const TextStyle& text);
    void leaveTable();
    [[nodiscard]] bool isInTable() const { return !m_tables.empty(); }

    // col and colgroup: widths of columns.
    void addColumns(const xmlNode* element, const StyleDeclarations& declared,
                    const TextStyle& text);

    // tbody, thead, tfoot.
    void enterGroup(const StyleDeclarations& declared);
    void enterRow(const StyleDeclarations& declared);
    void leaveRow();

    // The block of a cell's paragraphs. row, group: what a cell does not say itself, its row says.
    [[nodiscard]] BlockStylePointer enterCell(const xmlNode* element,
                                              const StyleDeclarations& declared,
                                              const TextStyle& text,
                                              const BlockStylePointer& block);

private:
    struct RowStyle {
        std::optional<css::ColorValue> background;
        std::optional<TextVerticalAlignment> verticalAlign;
    };
    struct State {
        std::shared_ptr<TextTable> table;
        double spacing = 0;
        double padding = 0;
        double cellBorder = 0;
        std::optional<Color> cellBorderColor;
        RowStyle group;
        RowStyle rowStyle;
        bool isInRow = false;
        int row = -1;
        int column = 0;
        std::vector<int> takenUntil; // by column: the row after a cell that reaches down into it
        std::vector<std::optional<TextLength>> columnWidths;
        std::vector<std::shared_ptr<TextBlock>> spanningCells;
        int columnsStarted = 0; // columns in which a cell begins
        int columnsReached = 0; // columns over which a cell spans
    };

    void startRow(State& state);
    void placeCell(State& state, TextBlock& cell);
    void fillCell(const State& state, TextBlock& cell, const StyleDeclarations& declared,
                  const TextStyle& text) const;

    const FontContext& m_fonts;
    std::vector<State> m_tables;
};

} // namespace platform::html
