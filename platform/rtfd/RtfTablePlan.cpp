// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfTablePlan.h"

namespace platform {

namespace {

constexpr std::size_t maximumDepth = 30;
constexpr int maximumColumns = 256;
// Cells that hold no paragraph and are written all the same, beyond one for each paragraph. Past
// them rows end early: a table of a million rows and 256 columns may hold nothing but its first
// column.
constexpr std::size_t spareEmptyCells = 100000;

using Step = RtfTablePlan::Step;
using Kind = RtfTablePlan::Kind;

// A cell that reaches into rows below its own.
struct RowSpan {
    const TextBlock* block = nullptr;
    int firstColumn = 0;
    int columnCount = 1;
    qint64 endRow = 0;
    std::size_t rowIndex = 0; // where its own row stands in the plan
};

class Planner {
public:
    explicit Planner(const std::vector<RtfParagraph>& paragraphs)
        : m_paragraphs(paragraphs)
        , m_emptyCellsLeft(spareEmptyCells + paragraphs.size())
    {
    }

    RtfTablePlan run()
    {
        m_plan.steps.reserve(m_paragraphs.size());
        for (std::size_t index = 0; index < m_paragraphs.size(); ++index)
            place(index);
        closeLevels(0);
        return std::move(m_plan);
    }

private:
    // One table level that is open: the row being gathered, and what the table carries from row to
    // row.
    struct Level {
        const TextBlock* block = nullptr; // the cell that is open
        std::size_t rowIndex = 0;
        int nextColumn = 0;         // the first column that has not been planned yet
        std::vector<RowSpan> spans; // by column, sized as far as needed
    };

    void place(std::size_t paragraphIndex)
    {
        static const std::vector<std::shared_ptr<const TextBlock>> none;
        const ParagraphStyle* style = m_paragraphs[paragraphIndex].style;
        const auto& blocks = style ? style->textBlocks : none;

        std::size_t depth = 0; // of this paragraph, without absent blocks
        std::array<const TextBlock*, maximumDepth> path{};
        for (const auto& block : blocks) {
            if (block && depth < maximumDepth)
                path[depth++] = block.get();
        }
        std::size_t common = 0;
        while (common < depth && common < m_levels.size() && m_levels[common].block == path[common])
            ++common;
        if (common < depth || common < m_levels.size()) {
            closeLevels(common < depth ? common + 1 : common);
            if (common < depth && common < m_levels.size())
                moveTo(common, *path[common]);
            for (std::size_t level = m_levels.size(); level < depth; ++level)
                openTable(*path[level]);
        }
        m_plan.steps.push_back({Kind::Paragraph, static_cast<int>(depth), paragraphIndex});
    }

    // Ends tables until this many levels are left.
    void closeLevels(std::size_t count)
    {
        while (m_levels.size() > count) {
            closeRow();
            m_plan.rows[m_levels.back().rowIndex].isLast = true;
            m_levels.pop_back();
        }
    }

    // From the level's open cell to another cell: in the same row, in a row below, or in another
    // table.
    void moveTo(std::size_t levelIndex, const TextBlock& block)
    {
        const Level& level = m_levels[levelIndex];
        const RtfRowPlan& row = m_plan.rows[level.rowIndex];
        const bool isSameTable = block.table && block.table.get() == row.table;
        if (isSameTable && block.row == row.row && columnOf(block) >= level.nextColumn) {
            endCell();
            startCell(block);
        } else if (isSameTable && block.row > row.row) {
            closeRow();
            openRow(block, false);
        } else {
            closeLevels(levelIndex);
            openTable(block);
        }
    }

    void openTable(const TextBlock& block)
    {
        m_levels.emplace_back();
        openRow(block, true);
    }

    void openRow(const TextBlock& block, bool isFirst)
    {
        Level& level = m_levels.back();
        level.rowIndex = m_plan.rows.size();
        level.nextColumn = 0;
        RtfRowPlan row;
        row.level = static_cast<int>(m_levels.size());
        row.table = block.table.get();
        row.row = block.row;
        row.isFirst = isFirst;
        m_plan.rows.push_back(row);
        m_plan.steps.push_back({Kind::OpenRow, row.level, level.rowIndex});
        startCell(block);
    }

    static int columnOf(const TextBlock& block) { return block.table ? block.column : 0; }

    void startCell(const TextBlock& block)
    {
        Level& level = m_levels.back();
        // A column that no table can have is the next one.
        const int column = columnOf(block);
        if (column > level.nextColumn && column < maximumColumns)
            fillColumns(column);
        level.block = &block;
        const int columnCount = block.table ? std::clamp(block.columnSpan, 1, maximumColumns) : 1;
        RtfRowPlan& row = m_plan.rows[level.rowIndex];
        row.cells.push_back({&block, columnCount > 1});
        ++level.nextColumn;
        if (block.table && block.rowSpan > 1) {
            const auto end = static_cast<std::size_t>(level.nextColumn) +
                             static_cast<std::size_t>(columnCount) - 1;
            if (level.spans.size() < end)
                level.spans.resize(end);
            const RowSpan span{&block, level.nextColumn - 1, columnCount,
                               qint64(block.row) + block.rowSpan, level.rowIndex};
            std::fill(level.spans.begin() + level.nextColumn - 1,
                      level.spans.begin() + static_cast<qsizetype>(end), span);
        }
    }

    // Ends the open cell: its last paragraph does it, or an empty one where a table stands last.
    void endCell()
    {
        Level& level = m_levels.back();
        const auto number = static_cast<int>(m_levels.size());
        Step& last = m_plan.steps.back();
        if (last.kind == Kind::Paragraph && last.level == number)
            last.kind = Kind::CellParagraph;
        else
            m_plan.steps.push_back({Kind::EmptyCell, number, 0});
        const TextBlock& block = *level.block;
        const int columnCount = block.table ? std::clamp(block.columnSpan, 1, maximumColumns) : 1;
        for (int column = 1; column < columnCount && m_emptyCellsLeft > 0; ++column)
            addEmptyCell({&block, false, true, false, false});
        level.block = nullptr;
    }

    void addEmptyCell(const RtfCellPlan& cell)
    {
        Level& level = m_levels.back();
        m_plan.rows[level.rowIndex].cells.push_back(cell);
        m_plan.steps.push_back({Kind::EmptyCell, static_cast<int>(m_levels.size()), 0});
        ++level.nextColumn;
        --m_emptyCellsLeft;
    }

    // Columns without a cell of their own, up to this one: a cell from a row above reaches in, or
    // none is there.
    void fillColumns(int end)
    {
        Level& level = m_levels.back();
        const int row = m_plan.rows[level.rowIndex].row;
        while (level.nextColumn < end && m_emptyCellsLeft > 0) {
            const int column = level.nextColumn;
            RtfCellPlan cell;
            if (column < static_cast<int>(level.spans.size())) {
                const RowSpan& span = level.spans[static_cast<std::size_t>(column)];
                if (span.block && span.endRow > row && span.rowIndex != level.rowIndex)
                    cell = continued(span, column);
            }
            addEmptyCell(cell);
        }
    }

    RtfCellPlan continued(const RowSpan& span, int column)
    {
        auto& originCells = m_plan.rows[span.rowIndex].cells;
        for (int origin = span.firstColumn; origin < span.firstColumn + span.columnCount; ++origin)
            originCells[static_cast<std::size_t>(origin)].startsRowMerge = true;
        const bool isFirstColumn = column == span.firstColumn;
        return {span.block, isFirstColumn && span.columnCount > 1, !isFirstColumn, false, true};
    }

    void closeRow()
    {
        endCell();
        const Level& level = m_levels.back();
        const RtfRowPlan& row = m_plan.rows[level.rowIndex];
        int columns = row.table ? std::clamp(row.table->columns, 1, maximumColumns) : 1;
        for (int column = static_cast<int>(level.spans.size()); column > columns; --column) {
            const RowSpan& span = level.spans[static_cast<std::size_t>(column - 1)];
            if (span.block && span.endRow > row.row)
                columns = column;
        }
        fillColumns(columns);
        m_plan.steps.push_back({Kind::CloseRow, static_cast<int>(m_levels.size()), level.rowIndex});
    }

    const std::vector<RtfParagraph>& m_paragraphs;
    std::size_t m_emptyCellsLeft;
    RtfTablePlan m_plan;
    std::vector<Level> m_levels;
};

} // namespace

namespace {

using RunIterator = std::vector<AttributedString::Run>::const_iterator;

// The style of a paragraph is that of its beginning. An attachment that was put there without one
// says nothing: what follows it in the paragraph does.
const ParagraphStyle* styleOf(RunIterator run, qsizetype end)
{
    while (run->attributes->attachment && !run->attributes->paragraphStyle &&
           run->range.end() < end)
        ++run;
    return run->attributes->paragraphStyle.get();
}

} // namespace

std::vector<RtfParagraph> paragraphsOf(const QString& text,
                                       const std::vector<AttributedString::Run>& runs)
{
    std::vector<RtfParagraph> paragraphs;
    const QStringView string(text);
    auto run = runs.begin();
    for (qsizetype start = 0; start < string.size();) {
        const qsizetype end = string.indexOf(u'\n', start);
        RtfParagraph paragraph;
        paragraph.isTerminated = end >= 0;
        paragraph.range = {start, (end < 0 ? string.size() : end + 1) - start};
        while (run->range.end() <= start)
            ++run;
        paragraph.style = styleOf(run, paragraph.range.end());
        paragraphs.push_back(paragraph);
        start = paragraph.range.end();
    }
    return paragraphs;
}

RtfTablePlan planTables(const std::vector<RtfParagraph>& paragraphs)
{
    return Planner(paragraphs).run();
}

} // namespace platform
