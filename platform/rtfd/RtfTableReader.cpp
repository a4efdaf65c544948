// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfTableReader.h"

#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfRowWriter.h"

namespace platform {

namespace {

constexpr qint32 unitFiftiethsOfPercent = 2;
constexpr qint32 unitTwips = 3;

std::optional<TextLength> lengthOf(qint32 value, qint32 unit)
{
    if (unit == unitTwips)
        return TextLength{pointsFromTwips(value), TextLength::Unit::Points};
    if (unit == unitFiftiethsOfPercent)
        return TextLength{value / 50.0, TextLength::Unit::Percent};
    return std::nullopt;
}

} // namespace

void RtfTableReader::openLevels(int depth)
{
    const std::size_t count = std::min(static_cast<std::size_t>(std::max(depth, 0)), maximumDepth);
    while (m_levels.size() < count)
        m_levels.emplace_back();
}

void RtfTableReader::closeLevels(std::size_t count)
{
    while (m_levels.size() > count) {
        finishRow(m_levels.back(), m_rows[m_levels.size()]);
        m_levels.pop_back();
    }
}

std::vector<std::shared_ptr<const TextBlock>> RtfTableReader::blocksAt(int depth)
{
    closeLevels(static_cast<std::size_t>(std::max(depth, 0)));
    if (depth <= 0 || m_cellsLeft < maximumDepth)
        return {};
    openLevels(depth);
    std::vector<std::shared_ptr<const TextBlock>> blocks;
    blocks.reserve(m_levels.size());
    for (Level& level : m_levels) {
        if (!level.table)
            level.table = std::make_shared<TextTable>();
        if (!level.current) {
            level.current = std::make_shared<TextBlock>();
            level.current->table = level.table;
            --m_cellsLeft;
        }
        blocks.push_back(level.current);
    }
    return blocks;
}

int RtfTableReader::innerDepth(int paragraphDepth) const
{
    if (paragraphDepth >= 2)
        return paragraphDepth;
    return std::max(2, static_cast<int>(m_levels.size()));
}

bool RtfTableReader::isContinuedCell(int depth) const
{
    const auto number = static_cast<std::size_t>(depth);
    if (depth < 1 || number > maximumDepth)
        return false;
    const std::size_t column = number <= m_levels.size() ? m_levels[number - 1].cells.size() : 0;
    const bool hasText = number <= m_levels.size() && m_levels[number - 1].current;
    const std::vector<Cell>& cells = m_rows[number].cells;
    return !hasText && column < cells.size() &&
           (cells[column].continuesColumnMerge || cells[column].continuesRowMerge);
}

void RtfTableReader::endCell(int depth)
{
    openLevels(depth);
    closeLevels(static_cast<std::size_t>(depth));
    Level& level = m_levels.back();
    if (level.cells.size() < maximumCells)
        level.cells.push_back(std::move(level.current));
    level.current = nullptr;
}

void RtfTableReader::endRow(int depth)
{
    const auto number = static_cast<std::size_t>(depth);
    closeLevels(number);
    if (m_levels.size() == number)
        finishRow(m_levels.back(), m_rows[number]);
}

void RtfTableReader::finishRow(Level& level, Row& row)
{
    if (level.current && level.cells.size() < maximumCells)
        level.cells.push_back(std::move(level.current));
    level.current = nullptr;
    if (level.cells.empty())
        return;
    if (!level.table)
        level.table = std::make_shared<TextTable>();
    TextTable& table = *level.table;
    fillTable(table, row, level.rowCount == 0);
    table.columns = std::max(
        {table.columns, static_cast<int>(level.cells.size()), static_cast<int>(row.cells.size())});
    level.above.resize(std::max(level.above.size(), level.cells.size()));
    for (std::size_t column = 0; column < level.cells.size(); ++column)
        placeCell(level, row, column);
    level.cells.clear();
    ++level.rowCount;
    if (row.isLast)
        level = Level();
    row.isLast = false;
}

void RtfTableReader::fillTable(TextTable& table, const Row& row, bool isFirstRow) const
{
    // The bottom edge stands in the last row, and some writers tell all edges in each.
    for (std::size_t edge = 0; edge < row.borders.size(); ++edge) {
        const Border& border = row.borders[edge];
        const std::optional<Color> color = m_colors.color(border.color);
        if (border.width <= 0 && !color)
            continue;
        table.borderWidth[edge] = pointsFromTwips(border.width);
        table.borderColor[edge] = color;
    }
    if (!isFirstRow)
        return;
    table.collapsesBorders = (row.flags & rtfTableCollapsesBorders) != 0;
    table.hidesEmptyCells = (row.flags & rtfTableHidesEmptyCells) != 0;
    table.backgroundColor = m_colors.color(row.background);
    table.width = lengthOf(row.width, row.widthUnit);
}

void RtfTableReader::placeCell(Level& level, const Row& row, std::size_t column)
{
    static const Cell noCell;
    const auto definitionAt = [&row](std::size_t index) -> const Cell& {
        return index < row.cells.size() ? row.cells[index] : noCell;
    };
    const Cell& cell = definitionAt(column);
    std::shared_ptr<TextBlock>& above = level.above[column];
    const std::shared_ptr<TextBlock>& block = level.cells[column];
    if (!block) {
        if (cell.continuesRowMerge && above)
            above->rowSpan = std::max(above->rowSpan, level.rowCount - above->row + 1);
        else if (!cell.continuesColumnMerge)
            above = nullptr;
        return;
    }
    block->row = level.rowCount;
    block->column = static_cast<int>(column);
    std::size_t end = column + 1;
    while (end < level.cells.size() && !level.cells[end] && definitionAt(end).continuesColumnMerge)
        ++end;
    block->columnSpan = static_cast<int>(end - column);
    fill(*block, cell, row, column == 0 ? 0 : definitionAt(column - 1).rightEdge);
    above = cell.startsRowMerge ? block : nullptr;
}

void RtfTableReader::fill(TextBlock& block, const Cell& cell, const Row& row, qint32 leftEdge) const
{
    block.verticalAlignment = cell.alignment;
    block.backgroundColor = m_colors.color(cell.background);
    block.width = lengthOf(cell.width, cell.widthUnit);
    // Cocoa spreads the edges evenly; elsewhere they tell the width.
    if (!block.width && !m_facts.isCocoa && cell.rightEdge > leftEdge)
        block.width = TextLength{pointsFromTwips(qint64(cell.rightEdge) - leftEdge),
                                 TextLength::Unit::Points};
    if (cell.height > 0)
        block.height = TextLength{pointsFromTwips(cell.height), TextLength::Unit::Points};
    for (std::size_t edge = 0; edge < 4; ++edge) {
        const bool isSide = edge == static_cast<std::size_t>(TextEdge::Left) ||
                            edge == static_cast<std::size_t>(TextEdge::Right);
        block.padding[edge] = pointsFromTwips(cell.padding[edge].value_or(isSide ? row.gap : 0));
        block.margin[edge] = pointsFromTwips(cell.margin[edge]);
        block.borderWidth[edge] = pointsFromTwips(cell.borders[edge].width);
        block.borderColor[edge] = m_colors.color(cell.borders[edge].color);
    }
}

} // namespace platform
