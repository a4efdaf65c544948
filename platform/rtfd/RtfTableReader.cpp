// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfTableReader.h"

#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfRowWriter.h"

namespace platform {

namespace {

constexpr std::size_t maximumCells = 1000;
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

bool RtfTableReader::apply(const RtfReadWord& word, int depth, Definition definition)
{
    if (word.word == RtfWord::Trowd) {
        const std::size_t inner = std::max<std::size_t>(2, m_levels.size());
        const std::size_t own = static_cast<std::size_t>(std::max(1, depth));
        m_definedDepth = std::min(definition == Definition::OfInnerRow ? inner : own, maximumDepth);
        m_rows[m_definedDepth] = Row();
        m_cell = Cell();
        m_border = &m_otherBorder;
        return true;
    }
    if (word.word == RtfWord::Lastrow) {
        // Within a definition, or behind the cells of the row that is open.
        m_rows[m_definedDepth].isLast = true;
        if (!m_levels.empty())
            m_rows[m_levels.size()].isLast = true;
        return true;
    }
    return applyToRow(word, m_rows[m_definedDepth]) || applyToCell(word);
}

bool RtfTableReader::applyToRow(const RtfReadWord& word, Row& row)
{
    switch (word.word) {
    case RtfWord::Taflags:
        row.flags = word.number;
        return true;
    case RtfWord::Trgaph:
        row.gap = word.number;
        return true;
    case RtfWord::Trcbpat:
        row.background = word.number;
        return true;
    case RtfWord::TrwWidth:
        row.width = word.number;
        return true;
    case RtfWord::TrftsWidth:
        row.widthUnit = word.number;
        return true;
    case RtfWord::Cellx:
        m_cell.rightEdge = word.number;
        if (row.cells.size() < maximumCells)
            row.cells.push_back(m_cell);
        m_cell = Cell();
        m_border = &m_otherBorder;
        return true;
    default:
        return false;
    }
}

bool RtfTableReader::applyToCell(const RtfReadWord& word)
{
    const auto at = [](TextEdge edge) {
        return static_cast<std::size_t>(edge);
    };
    switch (word.word) {
    case RtfWord::Clmgf:
        m_cell.startsColumnMerge = true;
        return true;
    case RtfWord::Clmrg:
        m_cell.continuesColumnMerge = true;
        return true;
    case RtfWord::Clvmgf:
        m_cell.startsRowMerge = true;
        return true;
    case RtfWord::Clvmrg:
        m_cell.continuesRowMerge = true;
        return true;
    case RtfWord::Clvertalt:
        m_cell.alignment = TextVerticalAlignment::Top;
        return true;
    case RtfWord::Clvertalc:
        m_cell.alignment = TextVerticalAlignment::Middle;
        return true;
    case RtfWord::Clvertalb:
        m_cell.alignment = TextVerticalAlignment::Bottom;
        return true;
    case RtfWord::Clvertalbl:
        m_cell.alignment = TextVerticalAlignment::Baseline;
        return true;
    case RtfWord::Clshdrawnil:
        m_cell.background = 0;
        return true;
    case RtfWord::Clcbpat:
        m_cell.background = word.number;
        return true;
    case RtfWord::ClwWidth:
        m_cell.width = word.number;
        return true;
    case RtfWord::ClftsWidth:
        m_cell.widthUnit = word.number;
        return true;
    case RtfWord::Clheight:
        m_cell.height = word.number;
        return true;
    case RtfWord::Clmart:
        m_cell.margin[at(TextEdge::Top)] = word.number;
        return true;
    case RtfWord::Clmarl:
        m_cell.margin[at(TextEdge::Left)] = word.number;
        return true;
    case RtfWord::Clmarb:
        m_cell.margin[at(TextEdge::Bottom)] = word.number;
        return true;
    case RtfWord::Clmarr:
        m_cell.margin[at(TextEdge::Right)] = word.number;
        return true;
    case RtfWord::Clpadt:
        m_cell.padding[at(TextEdge::Top)] = word.number;
        return true;
    case RtfWord::Clpadl:
        m_cell.padding[at(TextEdge::Left)] = word.number;
        return true;
    case RtfWord::Clpadb:
        m_cell.padding[at(TextEdge::Bottom)] = word.number;
        return true;
    case RtfWord::Clpadr:
        m_cell.padding[at(TextEdge::Right)] = word.number;
        return true;
    case RtfWord::Clbrdrt:
        m_border = &m_cell.borders[at(TextEdge::Top)];
        return true;
    case RtfWord::Clbrdrl:
        m_border = &m_cell.borders[at(TextEdge::Left)];
        return true;
    case RtfWord::Clbrdrb:
        m_border = &m_cell.borders[at(TextEdge::Bottom)];
        return true;
    case RtfWord::Clbrdrr:
        m_border = &m_cell.borders[at(TextEdge::Right)];
        return true;
    case RtfWord::OtherBorder:
        m_border = &m_otherBorder;
        return true;
    case RtfWord::Brdrs:
        // A line without a width is half a point wide.
        m_border->width = 10;
        return true;
    case RtfWord::Brdrnil:
        *m_border = Border();
        return true;
    case RtfWord::Brdrw:
        m_border->width = word.number;
        return true;
    case RtfWord::Brdrcf:
        m_border->color = word.number;
        return true;
    default:
        return false;
    }
}

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
    return !hasText && column < cells.size()
           && (cells[column].continuesColumnMerge || cells[column].continuesRowMerge);
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
    if (level.rowCount == 0) {
        table.collapsesBorders = (row.flags & rtfTableCollapsesBorders) != 0;
        table.hidesEmptyCells = (row.flags & rtfTableHidesEmptyCells) != 0;
        table.backgroundColor = m_colors.color(row.background);
        table.width = lengthOf(row.width, row.widthUnit);
    }
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
        block.width = TextLength{pointsFromTwips(qint64(cell.rightEdge) - leftEdge), TextLength::Unit::Points};
    if (cell.height > 0)
        block.height = TextLength{pointsFromTwips(cell.height), TextLength::Unit::Points};
    for (std::size_t edge = 0; edge < 4; ++edge) {
        const bool isSide = edge == static_cast<std::size_t>(TextEdge::Left)
                            || edge == static_cast<std::size_t>(TextEdge::Right);
        block.padding[edge] = pointsFromTwips(cell.padding[edge].value_or(isSide ? row.gap : 0));
        block.margin[edge] = pointsFromTwips(cell.margin[edge]);
        block.borderWidth[edge] = pointsFromTwips(cell.borders[edge].width);
        block.borderColor[edge] = m_colors.color(cell.borders[edge].color);
    }
}

} // namespace platform
