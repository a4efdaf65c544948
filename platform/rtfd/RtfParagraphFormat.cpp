// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfParagraphFormat.h"

#include "platform/rtfd/RtfControlWords.h"

#include <cmath>

namespace platform {

namespace {

void appendLength(RtfOutput& out, const char* word, double points)
{
    if (const qint64 twips = twipsFromPoints(points); twips != 0)
        appendControl(out, word, twips);
}

void appendTabStops(RtfOutput& out, const ParagraphStyle& style)
{
    for (const TextTab& stop : style.tabStops) {
        if (stop.alignment == TextAlignment::Right)
            out.append("\\tqr");
        else if (stop.alignment == TextAlignment::Center)
            out.append("\\tqc");
        appendControl(out, "\\tx", twipsFromPoints(stop.location));
    }
    const bool hasInterval = twipsFromPoints(style.defaultTabInterval) != 0;
    if (style.tabStops.empty() && !hasInterval) {
        for (int stop = 1; stop <= defaultTabStopCount; ++stop)
            appendControl(out, "\\tx", stop * defaultTabStopTwips);
    }
    appendLength(out, "\\pardeftab", style.defaultTabInterval);
}

// \sl is a height that the line has at least, exactly when negative, and with \slmult1 a multiple
// of 240.
void appendLineHeights(RtfOutput& out, const ParagraphStyle& style)
{
    appendLength(out, "\\slleading", style.lineSpacing);
    const qint64 multiple =
        std::isfinite(style.lineHeightMultiple)
            ? std::llround(std::clamp(style.lineHeightMultiple, 0.0, 1000.0) * 240)
            : 0;
    const qint64 minimum = twipsFromPoints(style.minimumLineHeight);
    const qint64 maximum = twipsFromPoints(style.maximumLineHeight);
    if (multiple > 0) {
        appendControl(out, "\\sl", multiple);
        out.append("\\slmult1");
    } else if (minimum > 0 && minimum == maximum) {
        appendControl(out, "\\sl", -minimum);
        return;
    } else if (minimum > 0) {
        appendControl(out, "\\sl", minimum);
    }
    if (maximum > 0)
        appendControl(out, "\\slmaximum", maximum);
    if (minimum > 0 && (multiple > 0 || maximum > 0))
        appendControl(out, "\\slminimum", minimum);
}

const char* alignmentWord(TextAlignment alignment)
{
    switch (alignment) {
    case TextAlignment::Natural:
        return "";
    case TextAlignment::Left:
        return "\\ql";
    case TextAlignment::Right:
        return "\\qr";
    case TextAlignment::Center:
        return "\\qc";
    case TextAlignment::Justified:
        return "\\qj";
    }
    return "";
}

} // namespace

void appendParagraphFormat(RtfOutput& out, const ParagraphStyle& style, int tableDepth)
{
    out.append("\\pard");
    if (tableDepth > 0)
        appendControl(out, "\\intbl\\itap", tableDepth);
    appendTabStops(out, style);

    const qint64 indent = twipsFromPoints(style.headIndent);
    const qint64 firstLine = twipsFromPoints(style.firstLineHeadIndent) - indent;
    if (indent != 0)
        appendControl(out, "\\li", indent);
    if (firstLine != 0)
        appendControl(out, "\\fi", firstLine);
    appendLength(out, "\\ri", -style.tailIndent);

    appendLineHeights(out, style);
    appendLength(out, "\\sb", style.paragraphSpacingBefore);
    appendLength(out, "\\sa", style.paragraphSpacing);
    if (style.headerLevel > 0)
        appendControl(out, "\\outlinelevel", std::min(style.headerLevel, 9) - 1);
    if (style.hyphenationFactor > 0)
        out.append("\\hyphpar");
    if (style.direction == WritingDirection::Natural)
        out.append("\\pardirnatural");
    else if (style.direction == WritingDirection::RightToLeft)
        out.append("\\rtlpar");
    out.append(alignmentWord(style.alignment));
    out.append("\\partightenfactor0\n");
}

} // namespace platform
