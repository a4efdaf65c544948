// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfCharacterFormat.h"

#include "platform/rtfd/RtfControlWords.h"

#include <cmath>

namespace platform {

namespace {

qint64 rounded(double value)
{
    return std::isnan(value) ? 0 : std::llround(std::clamp(value, -1e7, 1e7));
}

void appendFont(RtfOutput& out, const RtfCharacterFormat& from, const RtfCharacterFormat& to)
{
    const bool sizeChanges = from.sizeInThousandths != to.sizeInThousandths;
    if (from.font == to.font && from.bold == to.bold && from.italic == to.italic && !sizeChanges)
        return;
    out.append('\n');
    if (from.font != to.font)
        appendControl(out, "\\f", to.font);
    if (from.italic != to.italic)
        out.append(to.italic ? "\\i" : "\\i0");
    if (from.bold != to.bold)
        out.append(to.bold ? "\\b" : "\\b0");
    if (sizeChanges) {
        // \fs counts half points; what lies between them is told exactly after it.
        appendControl(out, "\\fs", to.sizeInThousandths / 500);
        if (to.sizeInThousandths % 500 != 0)
            appendControl(out, "\\fsmilli", to.sizeInThousandths);
    }
    out.append(' ');
}

void appendKern(RtfOutput& out, qint64 twips)
{
    if (twips == 0) {
        out.append("\\kerning1\\expnd0\\expndtw0 ");
        return;
    }
    appendControl(out, "\\kerning1\\expnd", rounded(static_cast<double>(twips) / 5));
    appendControl(out, "\\expndtw", twips);
    out.append('\n');
}

void appendRaising(RtfOutput& out, const RtfCharacterFormat& from, const RtfCharacterFormat& to)
{
    if (from.offsetInHalfPoints != to.offsetInHalfPoints) {
        const bool isLowered = to.offsetInHalfPoints < 0;
        appendControl(out, isLowered ? "\\dn" : "\\up", std::abs(to.offsetInHalfPoints));
        out.append(' ');
    }
    if (from.superscript == to.superscript)
        return;
    if (to.superscript == 0) {
        out.append("\\nosupersub ");
        return;
    }
    out.append(to.superscript > 0 ? "\\super" : "\\sub");
    if (const int level = std::abs(to.superscript); level > 1)
        appendControl(out, "", level);
    out.append(' ');
}

void appendUnderline(RtfOutput& out, const RtfCharacterFormat& from, const RtfCharacterFormat& to)
{
    if (from.underline != to.underline) {
        switch (to.underline) {
        case LineStyle::None:
            out.append("\\ulnone ");
            break;
        case LineStyle::Single:
            out.append("\\ul ");
            break;
        case LineStyle::Thick:
            out.append("\\ulth ");
            break;
        case LineStyle::Double:
            out.append("\\uldb ");
            break;
        }
    }
    if (from.underlineColor != to.underlineColor) {
        appendControl(out, "\\ulc", to.underlineColor);
        out.append(' ');
    }
}

void appendStrikethrough(RtfOutput& out, const RtfCharacterFormat& from,
                         const RtfCharacterFormat& to)
{
    const bool styleChanges = from.strikethrough != to.strikethrough;
    if (styleChanges && from.strikethrough != LineStyle::None)
        out.append("\\strike0\\striked0 ");
    if (styleChanges) {
        if (to.strikethrough == LineStyle::Single)
            out.append("\\strike ");
        else if (to.strikethrough == LineStyle::Double)
            out.append("\\striked1 ");
        else if (to.strikethrough == LineStyle::Thick)
            out.append("\\strike \\strikestyle2 ");
    }
    const bool begins = styleChanges && to.strikethrough != LineStyle::None;
    if (begins || from.strikethroughColor != to.strikethroughColor) {
        appendControl(out, "\\strikec", to.strikethroughColor);
        out.append(' ');
    }
}

} // namespace

RtfCharacterFormat characterFormat(const TextAttributes& attributes, RtfFontTable& fonts,
                                   RtfColorTable& colors)
{
    static const Font standardFont = Font::userFont(12);
    const Font& font = attributes.font ? *attributes.font : standardFont;
    RtfCharacterFormat format;
    format.font = fonts.indexOf(font);
    format.bold = font.bold;
    format.italic = font.italic;
    format.sizeInThousandths = std::max<qint64>(rounded(font.size * 1000), 1);
    format.foreground = colors.indexOf(attributes.foregroundColor);
    format.background = colors.indexOf(attributes.backgroundColor);
    format.kernInTwips = rounded(attributes.kern * 20);
    format.offsetInHalfPoints = rounded(attributes.baselineOffset * 2);
    format.superscript = attributes.superscript;
    format.underline = attributes.underline;
    format.underlineColor = colors.indexOf(attributes.underlineColor);
    format.strikethrough = attributes.strikethrough;
    format.strikethroughColor = colors.indexOf(attributes.strikethroughColor);
    return format;
}

void appendFormatChange(RtfOutput& out, const RtfCharacterFormat& from,
                        const RtfCharacterFormat& to, RtfColorWord colorWord)
{
    appendFont(out, from, to);
    if (colorWord == RtfColorWord::Always || from.foreground != to.foreground) {
        appendControl(out, "\\cf", to.foreground);
        out.append(' ');
    }
    if (from.background != to.background) {
        // Number 1, white, ends a background.
        appendControl(out, "\\cb", to.background == 0 ? 1 : to.background);
        out.append(' ');
    }
    if (from.kernInTwips != to.kernInTwips)
        appendKern(out, to.kernInTwips);
    appendRaising(out, from, to);
    appendUnderline(out, from, to);
    appendStrikethrough(out, from, to);
}

} // namespace platform
