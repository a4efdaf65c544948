// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"

#include <cstdint>
#include <vector>

namespace platform {

// A paragraph with its terminator, where it has one.
struct RtfParagraph {
    TextRange range;
    bool isTerminated = false;
    const ParagraphStyle* style = nullptr; // null: the standard one
};

[[nodiscard]] std::vector<RtfParagraph>
paragraphsOf(const QString& text, const std::vector<AttributedString::Run>& runs);

struct RtfCellPlan {
    const TextBlock* block = nullptr; // null: the row has no cell in this column
    bool startsColumnMerge = false;
    bool continuesColumnMerge = false;
    bool startsRowMerge = false;
    bool continuesRowMerge = false;
};

struct RtfRowPlan {
    int level = 0;                    // 1: not inside another table's cell
    const TextTable* table = nullptr; // null: the row is a plain box
    int row = 0;
    std::vector<RtfCellPlan> cells; // one a column
    bool isFirst = false;
    bool isLast = false;
};

// The order in which paragraphs and table rows are written: rich text defines a row before its
// cells, so the cells are gathered first.
struct RtfTablePlan {
    enum class Kind : std::uint8_t { OpenRow, Paragraph, CellParagraph, EmptyCell, CloseRow };
    struct Step {
        Kind kind = Kind::Paragraph; // CellParagraph: the paragraph's end is the cell's
        int level = 0;
        std::size_t index = 0; // of the paragraph or the row
    };
    std::vector<RtfRowPlan> rows;
    std::vector<Step> steps;
};

// A plain box is planned as a table of one cell: that is the only box of rich text that Cocoa reads
// back with its padding, border and background. Boxes within more than thirty others lose the inner
// ones.
[[nodiscard]] RtfTablePlan planTables(const std::vector<RtfParagraph>& paragraphs);

} // namespace platform
