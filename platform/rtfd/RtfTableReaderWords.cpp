// SPDX-License-Identifier: MIT
//
// The words of a row's definition, as an RtfTableReader meets them.
#include "platform/rtfd/RtfTableReader.h"

namespace platform {

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
    case RtfWord::Trbrdrt:
        m_border = &row.borders[static_cast<std::size_t>(TextEdge::Top)];
        return true;
    case RtfWord::Trbrdrl:
        m_border = &row.borders[static_cast<std::size_t>(TextEdge::Left)];
        return true;
    case RtfWord::Trbrdrb:
        m_border = &row.borders[static_cast<std::size_t>(TextEdge::Bottom)];
        return true;
    case RtfWord::Trbrdrr:
        m_border = &row.borders[static_cast<std::size_t>(TextEdge::Right)];
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

} // namespace platform
