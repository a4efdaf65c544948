// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfColorTable.h"

#include "platform/rtfd/RtfControlWords.h"

#include <cmath>

namespace platform {

namespace {

constexpr int wholeComponent = 100000;
constexpr int firstIndex = 2;
// Entries on a line of a table, as Cocoa breaks it.
constexpr qsizetype entriesPerLine = 5;

int scaled(double component)
{
    return std::isnan(component)
               ? 0
               : static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * wholeComponent));
}

int byteFrom(int component)
{
    return static_cast<int>(std::lround(component * 255.0 / wholeComponent));
}

void breakLine(RtfOutput& out, qsizetype index)
{
    if ((index + firstIndex) % entriesPerLine == entriesPerLine - 1)
        out.append('\n');
}

} // namespace

RtfColorTable::Components RtfColorTable::components(const Color& color)
{
    return {scaled(color.red), scaled(color.green), scaled(color.blue), scaled(color.alpha),
            color.space == Color::Space::CalibratedRgb ? 1 : 0};
}

int RtfColorTable::indexOf(const Color& color)
{
    const Components sought = components(color);
    const auto hash = static_cast<quint64>(qHashRange(sought.begin(), sought.end()));
    QList<int>& indexes = m_indexesByHash[hash];
    for (const int index : std::as_const(indexes)) {
        if (m_colors.at(index) == sought)
            return index + firstIndex;
    }
    indexes.append(static_cast<int>(m_colors.size()));
    m_colors.append(sought);
    return indexes.constLast() + firstIndex;
}

void RtfColorTable::write(RtfOutput& out) const
{
    out.append("{\\colortbl;\\red255\\green255\\blue255;");
    for (qsizetype index = 0; index < m_colors.size(); ++index) {
        const Components& color = m_colors.at(index);
        appendControl(out, "\\red", byteFrom(color[0]));
        appendControl(out, "\\green", byteFrom(color[1]));
        appendControl(out, "\\blue", byteFrom(color[2]));
        out.append(';');
        breakLine(out, index);
    }
    out.append("}\n{\\*\\expandedcolortbl;;");
    for (qsizetype index = 0; index < m_colors.size(); ++index) {
        const Components& color = m_colors.at(index);
        out.append(color[4] == 1 ? "\\csgenericrgb" : "\\cssrgb");
        const std::size_t count = color[3] == wholeComponent ? 3 : 4;
        for (std::size_t component = 0; component < count; ++component)
            appendControl(out, "\\c", color[component]);
        out.append(';');
        breakLine(out, index);
    }
    out.append("}\n");
}

} // namespace platform
