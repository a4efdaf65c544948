// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfRowWriter.h"

#include "platform/rtfd/RtfControlWords.h"

#include <cmath>

namespace platform {

namespace {

// The letters of the edges, in the order in which Cocoa writes them.
struct EdgeLetter {
    TextEdge edge;
    char letter;
};
constexpr std::array<EdgeLetter, 4> edges = {
    {{TextEdge::Top, 't'}, {TextEdge::Left, 'l'}, {TextEdge::Bottom, 'b'}, {TextEdge::Right, 'r'}}};

std::size_t indexOf(TextEdge edge)
{
    return static_cast<std::size_t>(edge);
}

void appendEdge(RtfOutput& out, const char* word, char letter, qint64 value)
{
    out.append(word).append(letter);
    appendControl(out, "", value);
    out.append(' ');
}

// \ftsWidth: 3 counts twips, 2 fiftieths of a per cent.
void appendWidth(RtfOutput& out, const char* prefix, const TextLength& width)
{
    const bool isPercent = width.unit == TextLength::Unit::Percent;
    const qint64 value =
        isPercent ? twipsFromPoints(width.value * 2.5) : twipsFromPoints(width.value);
    out.append('\\').append(prefix);
    appendControl(out, "wWidth", value);
    out.append('\\').append(prefix);
    appendControl(out, "ftsWidth", isPercent ? 2 : 3);
    out.append(' ');
}

// Box: a cell's block or a table.
template <typename Box>
bool hasBorder(const Box& box, TextEdge edge)
{
    return twipsFromPoints(box.borderWidth[indexOf(edge)]) > 0 || box.borderColor[indexOf(edge)];
}

template <typename Box>
void appendBorder(RtfOutput& out, const Box& box, TextEdge edge, RtfColorTable& colors)
{
    if (!hasBorder(box, edge)) {
        out.append("\\brdrnil ");
        return;
    }
    const qint64 width = twipsFromPoints(box.borderWidth[indexOf(edge)]);
    appendControl(out, "\\brdrs\\brdrw", std::max<qint64>(width, 0));
    appendControl(out, "\\brdrcf", colors.indexOf(box.borderColor[indexOf(edge)]));
    out.append(' ');
}

void appendCellBorders(RtfOutput& out, const TextBlock& block, RtfColorTable& colors)
{
    for (const auto& [edge, letter] : edges) {
        out.append("\\clbrdr").append(letter);
        appendBorder(out, block, edge, colors);
    }
}

// The part of the table's own border that the row stands at.
void appendTableBorders(RtfOutput& out, const TextTable& table, const RtfRowPlan& row,
                        RtfColorTable& colors)
{
    if (row.isFirst)
        appendBorder(out.append("\\trbrdrt"), table, TextEdge::Top, colors);
    appendBorder(out.append("\\trbrdrl"), table, TextEdge::Left, colors);
    // Where nothing is drawn, the bottom edge goes by the name of the top one, as Cocoa has it.
    const bool isDrawn = hasBorder(table, TextEdge::Top) || hasBorder(table, TextEdge::Bottom);
    if (row.isLast)
        appendBorder(out.append(isDrawn ? "\\trbrdrb" : "\\trbrdrt"), table, TextEdge::Bottom,
                     colors);
    appendBorder(out.append("\\trbrdrr"), table, TextEdge::Right, colors);
}

const char* verticalAlignmentWord(TextVerticalAlignment alignment)
{
    switch (alignment) {
    case TextVerticalAlignment::Top:
        return "\\clvertalt ";
    case TextVerticalAlignment::Middle:
        return "\\clvertalc ";
    case TextVerticalAlignment::Bottom:
        return "\\clvertalb ";
    case TextVerticalAlignment::Baseline:
        return "\\clvertalbl ";
    }
    return "";
}

void appendCellDefinition(RtfOutput& out, const RtfCellPlan& cell, RtfColorTable& colors)
{
    static const TextBlock noBlock;
    const TextBlock& block = cell.block ? *cell.block : noBlock;
    if (cell.startsColumnMerge)
        out.append("\\clmgf ");
    if (cell.continuesColumnMerge)
        out.append("\\clmrg ");
    if (cell.startsRowMerge)
        out.append("\\clvmgf ");
    if (cell.continuesRowMerge)
        out.append("\\clvmrg ");
    out.append(verticalAlignmentWord(block.verticalAlignment));
    if (block.backgroundColor) {
        appendControl(out, "\\clcbpat", colors.indexOf(block.backgroundColor));
        out.append(' ');
    } else {
        out.append("\\clshdrawnil ");
    }
    if (block.width)
        appendWidth(out, "cl", *block.width);
    // No unit can be told for heights: a per cent would be read as points.
    if (block.height && block.height->unit == TextLength::Unit::Points) {
        appendControl(out, "\\clheight", twipsFromPoints(block.height->value));
        out.append(' ');
    }
    for (const auto& [edge, letter] : edges) {
        if (const qint64 margin = twipsFromPoints(block.margin[indexOf(edge)]); margin != 0)
            appendEdge(out, "\\clmar", letter, margin);
    }
    appendCellBorders(out, block, colors);
    for (const auto& [edge, letter] : edges) {
        // Left and right are always told, or half of \trgaph would count.
        const bool isAlwaysTold = edge == TextEdge::Left || edge == TextEdge::Right;
        const qint64 padding = twipsFromPoints(block.padding[indexOf(edge)]);
        if (padding != 0 || isAlwaysTold)
            appendEdge(out, "\\clpad", letter, padding);
    }
}

void appendProperties(RtfOutput& out, const RtfRowPlan& row, RtfColorTable& colors)
{
    static const TextTable noTable;
    const TextTable& table = row.table ? *row.table : noTable;
    int flags = table.collapsesBorders ? rtfTableCollapsesBorders : 0;
    if (table.hidesEmptyCells)
        flags |= rtfTableHidesEmptyCells;
    appendControl(out, "\\trowd \\taflags", flags);
    out.append(" \\trgaph108\\trleft-108 ");
    if (table.width)
        appendWidth(out, "tr", *table.width);
    if (table.backgroundColor) {
        appendControl(out, "\\trcbpat", colors.indexOf(table.backgroundColor));
        out.append(' ');
    }
    appendTableBorders(out, table, row, colors);
    out.append('\n');

    const auto count = static_cast<qint64>(row.cells.size());
    for (qint64 index = 0; index < count; ++index) {
        appendCellDefinition(out, row.cells[static_cast<std::size_t>(index)], colors);
        appendControl(out, "\\gaph\\cellx", rtfRowWidth * (index + 1) / count);
        out.append('\n');
    }
}

} // namespace

void appendRowDefinition(RtfOutput& out, const RtfRowPlan& row, RtfColorTable& colors)
{
    appendControl(out, "\n\\itap", row.level);
    appendProperties(out, row, colors);
}

void appendRowEnd(RtfOutput& out, const RtfRowPlan& row, RtfColorTable& colors)
{
    const bool isInner = row.level > 1;
    if (isInner) {
        out.append("{\\*\\nesttableprops");
        appendProperties(out, row, colors);
        out.append('}');
    }
    if (row.isLast)
        out.append("\\lastrow");
    out.append(isInner ? "\\nestrow\n" : "\\row\n");
}

} // namespace platform
