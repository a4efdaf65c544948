// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/TextTable.h"
#include "platform/rtfd/RtfReadFormats.h"

#include <array>
#include <memory>
#include <vector>

namespace platform {

// Makes tables of rows and cells as they are read. A cell's block is made with its first paragraph;
// what the row's definition says of it is filled in at the row's end, because some writers define a
// row only there.
class RtfTableReader {
public:
    // documentSize: in bytes; it limits how many cells there can be.
    RtfTableReader(const RtfReadColors& colors, const RtfDocumentFacts& facts,
                   std::size_t documentSize)
        : m_colors(colors)
        , m_facts(facts)
        , m_cellsLeft(10000 + documentSize / 16)
    {
    }

    // False when the word is none of a row's definition. depth: how many cells the paragraph in
    // force stands in. definesInnerRow: within the group that defines a row of an inner table.
    enum class Definition { OfParagraphsRow, OfInnerRow };
    bool apply(const RtfReadWord& word, int depth, Definition definition);

    // The cells round a paragraph of the depth, outermost first; ends the tables that it does not
    // stand in.
    [[nodiscard]] std::vector<std::shared_ptr<const TextBlock>> blocksAt(int depth);

    // A cell's end, after its last paragraph.
    void endCell(int depth);
    void endRow(int depth);
    void endInnerRow() { endRow(std::max(2, static_cast<int>(m_levels.size()))); }
    // The depth of the cell that \nestcell ends.
    [[nodiscard]] int innerDepth(int paragraphDepth) const;
    // The cell in which the next text will stand continues another one, by its row's definition.
    [[nodiscard]] bool isContinuedCell(int depth) const;
    // All tables are over.
    void end() { closeLevels(0); }

private:
    struct Border {
        qint32 width = 0;
        qint32 color = 0;
    };
    struct Cell {
        bool startsColumnMerge = false;
        bool continuesColumnMerge = false;
        bool startsRowMerge = false;
        bool continuesRowMerge = false;
        TextVerticalAlignment alignment = TextVerticalAlignment::Top;
        qint32 background = 0;
        qint32 width = 0;
        qint32 widthUnit = 0; // as in \clftsWidth: 2 fiftieths of a per cent, 3 twips
        qint32 height = 0;
        std::array<Border, 4> borders{};
        std::array<std::optional<qint32>, 4> padding{};
        std::array<qint32, 4> margin{};
        qint32 rightEdge = 0;
    };
    struct Row {
        std::vector<Cell> cells;
        qint32 gap = 0;
        qint32 flags = 0;
        qint32 background = 0;
        qint32 width = 0;
        qint32 widthUnit = 0;
        std::array<Border, 4> borders{}; // of the table, as far as the row stands at them
        bool isLast = false;
    };
    struct Level {
        std::shared_ptr<TextTable> table;
        int rowCount = 0;
        std::vector<std::shared_ptr<TextBlock>>
            cells;                          // of the open row; null where a cell has no paragraph
        std::shared_ptr<TextBlock> current; // the open cell
        std::vector<std::shared_ptr<TextBlock>>
            above; // by column: cells that rows below may continue
    };
    static constexpr std::size_t maximumDepth = 30;
    static constexpr std::size_t maximumCells = 1000; // in a row

    bool applyToRow(const RtfReadWord& word, Row& row);
    bool applyToCell(const RtfReadWord& word);
    void openLevels(int depth);
    void closeLevels(std::size_t count);
    void finishRow(Level& level, Row& row);
    void fillTable(TextTable& table, const Row& row, bool isFirstRow) const;
    void placeCell(Level& level, const Row& row, std::size_t column);
    void fill(TextBlock& block, const Cell& cell, const Row& row, qint32 leftEdge) const;

    const RtfReadColors& m_colors;
    const RtfDocumentFacts& m_facts;
    // A few bytes can begin and end thirty cells within each other; no real document has so many.
    std::size_t m_cellsLeft;
    std::vector<Level> m_levels;
    std::array<Row, maximumDepth + 1>
        m_rows;  // definitions by depth; a row without its own takes the last
    Cell m_cell; // the definition that the next \cellx ends
    Border m_otherBorder;
    Border* m_border = &m_otherBorder;
    std::size_t m_definedDepth = 1;
};

} // namespace platform
