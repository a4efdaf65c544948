// SPDX-License-Identifier: MIT
#include "platform/htmlimport/TableBuilder.h"

#include "platform/htmlimport/CssTokenizer.h"

#include <algorithm>

namespace platform::html {

namespace {

constexpr std::size_t deepestTable = 12;
// As in HTML itself; wider tables go on in the next row.
constexpr int mostColumns = 1000;
constexpr int mostRowsSpanned = 65534;

// What browsers give to tables that say nothing, in pixels.
constexpr double usualSpacing = 2;
constexpr double usualPadding = 1;
const Color usualBorderColor = Color::fromRgb8(128, 128, 128);

std::optional<double> pixelsAttribute(const xmlNode* element, const char* name)
{
    const auto text = attribute(element, name);
    if (!text)
        return std::nullopt;
    const auto length = css::lengthFromAttribute(*text);
    if (!length || length->unit != css::Length::Unit::Points)
        return std::nullopt;
    return std::min(length->value, 1000.0);
}

int spanAttribute(const xmlNode* element, const char* name, int most)
{
    const auto text = attribute(element, name);
    const auto number = text ? css::numberIn(css::trimmed(*text)) : std::nullopt;
    if (!number || *number < 0)
        return 1;
    return static_cast<int>(std::min<double>(*number, most));
}

std::optional<TextLength> widthFrom(const StyleDeclarations& declared, const TextStyle& text,
                                    const FontContext& fonts)
{
    TextBlock box;
    StyleDeclarations onlyWidth;
    onlyWidth.width = declared.width;
    fillBox(box, onlyWidth, text, fonts);
    return box.width;
}

} // namespace

bool TableBuilder::canEnterTable() const
{
    return m_tables.size() < deepestTable;
}

void TableBuilder::enterTable(const xmlNode* element, const StyleDeclarations& declared,
                              const TextStyle& text)
{
    State state;
    state.table = std::make_shared<TextTable>();
    TextTable& table = *state.table;
    table.width = widthFrom(declared, text, m_fonts);
    table.collapsesBorders = declared.collapsesBorders.value_or(false);
    table.hidesEmptyCells = declared.hidesEmptyCells.value_or(false);
    if (declared.background && !declared.background->isTransparent())
        table.backgroundColor = declared.background->resolved(text.attributes.foregroundColor);
    StyleDeclarations onlyBorder;
    onlyBorder.border = declared.border;
    TextBlock frame;
    fillBox(frame, onlyBorder, text, m_fonts);
    table.borderWidth = frame.borderWidth;
    table.borderColor = frame.borderColor;

    state.padding = pixelsAttribute(element, "cellpadding").value_or(usualPadding);
    state.spacing = pixelsAttribute(element, "cellspacing").value_or(usualSpacing);
    if (declared.borderSpacing)
        state.spacing = distance(declared.borderSpacing, text, m_fonts);
    if (table.collapsesBorders)
        state.spacing = 0;
    // A border attribute, even an empty one, draws a thin line round each cell.
    if (const auto border = attribute(element, "border"); border && css::trimmed(*border) != "0") {
        state.cellBorder = 1;
        const auto color = attribute(element, "bordercolor");
        const auto named = color ? css::colorFromAttribute(*color) : std::nullopt;
        state.cellBorderColor =
            named ? named->resolved(text.attributes.foregroundColor) : usualBorderColor;
    }
    m_tables.push_back(std::move(state));
}

void TableBuilder::leaveTable()
{
    State& state = m_tables.back();
    const int rows = state.row + 1;
    // Columns that no cell begins in are only the far ends of wide cells.
    const int declaredColumns = static_cast<int>(state.columnWidths.size());
    const int columns =
        std::max({1, state.columnsStarted, std::min(declaredColumns, state.columnsReached)});
    state.table->columns = columns;
    for (const std::shared_ptr<TextBlock>& cell : state.spanningCells) {
        cell->rowSpan = std::clamp(cell->rowSpan, 1, std::max(1, rows - cell->row));
        cell->columnSpan = std::clamp(cell->columnSpan, 1, std::max(1, columns - cell->column));
    }
    m_tables.pop_back();
}

void TableBuilder::addColumns(const xmlNode* element, const StyleDeclarations& declared,
                              const TextStyle& text)
{
    if (m_tables.empty())
        return;
    // A group with columns of its own says nothing itself.
    for (const xmlNode* child = element->children; child; child = child->next) {
        if (child->type == XML_ELEMENT_NODE)
            return;
    }
    State& state = m_tables.back();
    const std::optional<TextLength> width = widthFrom(declared, text, m_fonts);
    for (int count = spanAttribute(element, "span", mostColumns); count > 0; --count) {
        if (state.columnWidths.size() < mostColumns)
            state.columnWidths.push_back(width);
    }
}

void TableBuilder::enterGroup(const StyleDeclarations& declared)
{
    if (m_tables.empty())
        return;
    m_tables.back().group = {declared.background, declared.verticalAlign};
    m_tables.back().isInRow = false;
}

void TableBuilder::startRow(State& state)
{
    state.isInRow = true;
    ++state.row;
    state.column = 0;
}

void TableBuilder::enterRow(const StyleDeclarations& declared)
{
    if (m_tables.empty())
        return;
    State& state = m_tables.back();
    state.rowStyle = {declared.background, declared.verticalAlign};
    startRow(state);
}

void TableBuilder::leaveRow()
{
    if (m_tables.empty())
        return;
    m_tables.back().isInRow = false;
    m_tables.back().rowStyle = {};
}

void TableBuilder::placeCell(State& state, TextBlock& cell)
{
    if (!state.isInRow)
        startRow(state);
    const auto isTaken = [&state](int column) {
        return column < static_cast<int>(state.takenUntil.size()) &&
               state.takenUntil[static_cast<std::size_t>(column)] > state.row;
    };
    while (isTaken(state.column))
        ++state.column;
    if (state.column >= mostColumns) {
        // Columns that cells from above fill to the brim leave no room in the next row either.
        state.takenUntil.clear();
        startRow(state);
    }
    cell.row = state.row;
    cell.column = state.column;
    cell.columnSpan = std::clamp(cell.columnSpan, 1, mostColumns - cell.column);
    const int end = cell.column + cell.columnSpan;
    if (static_cast<int>(state.takenUntil.size()) < end)
        state.takenUntil.resize(static_cast<std::size_t>(end), 0);
    std::fill(state.takenUntil.begin() + cell.column, state.takenUntil.begin() + end,
              cell.row + cell.rowSpan);
    state.column = end;
    state.columnsStarted = std::max(state.columnsStarted, cell.column + 1);
    state.columnsReached = std::max(state.columnsReached, end);
}

void TableBuilder::fillCell(const State& state, TextBlock& cell, const StyleDeclarations& declared,
                            const TextStyle& text) const
{
    fillBox(cell, declared, text, m_fonts);
    for (std::size_t edge = 0; edge < 4; ++edge) {
        if (!declared.padding[edge])
            cell.padding[edge] = state.padding;
        if (!declared.border[edge].visible && state.cellBorder > 0) {
            cell.borderWidth[edge] = state.cellBorder;
            cell.borderColor[edge] = state.cellBorderColor;
        }
        // Cells have no margins in CSS; half the distance between two cells belongs to each.
        cell.margin[edge] = state.spacing / 2;
    }
    for (const auto& background : {state.rowStyle.background, state.group.background}) {
        if (!cell.backgroundColor && background && !background->isTransparent())
            cell.backgroundColor = background->resolved(text.attributes.foregroundColor);
    }
    const auto rowAlign =
        state.rowStyle.verticalAlign ? state.rowStyle.verticalAlign : state.group.verticalAlign;
    cell.verticalAlignment =
        declared.verticalAlign.value_or(rowAlign.value_or(TextVerticalAlignment::Middle));
    if (cell.width)
        return;
    const auto column = static_cast<std::size_t>(cell.column);
    if (cell.columnSpan == 1 && column < state.columnWidths.size())
        cell.width = state.columnWidths[column];
}

BlockStylePointer TableBuilder::enterCell(const xmlNode* element, const StyleDeclarations& declared,
                                          const TextStyle& text, const BlockStylePointer& block)
{
    State& state = m_tables.back();
    auto cell = std::make_shared<TextBlock>();
    cell->table = state.table;
    cell->columnSpan = std::max(1, spanAttribute(element, "colspan", mostColumns));
    cell->rowSpan = spanAttribute(element, "rowspan", mostRowsSpanned);
    if (cell->rowSpan == 0)
        cell->rowSpan = mostRowsSpanned; // nought means all rows that are left
    placeCell(state, *cell);
    fillCell(state, *cell, declared, text);
    if (cell->rowSpan > 1 || cell->columnSpan > 1)
        state.spanningCells.push_back(cell);

    auto inside = std::make_shared<BlockStyle>(*block);
    inside->alignment = declared.textAlign.value_or(inside->alignment);
    inside->direction = declared.direction.value_or(inside->direction);
    inside->leftIndent = 0;
    inside->rightIndent = 0;
    inside->textIndent = 0;
    inside->headerLevel = 0;
    inside->breaksAreSoft = false;
    inside->isInItem = false;
    inside->lists.clear();
    inside->boxes.push_back(std::move(cell));
    return inside;
}

} // namespace platform::html
