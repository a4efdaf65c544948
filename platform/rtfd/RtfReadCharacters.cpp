// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfReadFormats.h"

namespace platform {

namespace {

constexpr qint32 largestSize = 4000000; // thousandths of a point
constexpr qint32 largestOffset = 100000;

qint32 limited(qint64 value, qint32 limit)
{
    return static_cast<qint32>(std::clamp<qint64>(value, -limit, limit));
}

// \ulstyle and \strikestyle: the low bits tell the line, others patterns.
LineStyle lineOfStyle(qint32 style)
{
    switch (style & 15) {
    case 0:
        return LineStyle::None;
    case 2:
        return LineStyle::Thick;
    case 9:
        return LineStyle::Double;
    default:
        return LineStyle::Single;
    }
}

LineStyle lineIf(bool isOn, LineStyle style)
{
    return isOn ? style : LineStyle::None;
}

} // namespace

bool RtfReadCharacters::apply(const RtfReadWord& word)
{
    const qint32 number = word.number;
    switch (word.word) {
    case RtfWord::B:
        bold = word.isOn();
        return true;
    case RtfWord::I:
        italic = word.isOn();
        return true;
    case RtfWord::F:
        font = number;
        return true;
    case RtfWord::Fs:
        sizeInThousandths =
            word.hasNumber && number > 0 ? limited(qint64(number) * 500, largestSize) : 12000;
        return true;
    case RtfWord::Fsmilli:
        if (number > 0)
            sizeInThousandths = limited(number, largestSize);
        return true;
    case RtfWord::Cf:
        foreground = number;
        return true;
    case RtfWord::Cb:
    case RtfWord::Chcbpat:
    case RtfWord::Highlight:
        background = number;
        return true;
    case RtfWord::Ul:
        underline = lineIf(word.isOn(), LineStyle::Single);
        return true;
    case RtfWord::Uldb:
        underline = lineIf(word.isOn(), LineStyle::Double);
        return true;
    case RtfWord::Ulth:
        underline = lineIf(word.isOn(), LineStyle::Thick);
        return true;
    case RtfWord::Ulnone:
        underline = LineStyle::None;
        return true;
    case RtfWord::Ulstyle:
        underline = lineOfStyle(number);
        return true;
    case RtfWord::Ulc:
        underlineColor = number;
        return true;
    case RtfWord::Strike:
        // Each of the two ends only its own line: writers set one and clear the other, in either
        // order.
        if (word.isOn() || strikethrough != LineStyle::Double)
            strikethrough = lineIf(word.isOn(), LineStyle::Single);
        return true;
    case RtfWord::Striked:
        if (word.isOn() || strikethrough == LineStyle::Double)
            strikethrough = lineIf(word.isOn(), LineStyle::Double);
        return true;
    case RtfWord::Strikestyle:
        strikethrough = lineOfStyle(number);
        return true;
    case RtfWord::Strikec:
        strikethroughColor = number;
        return true;
    case RtfWord::Super:
        superscript = word.hasNumber ? limited(number, largestOffset) : 1;
        return true;
    case RtfWord::Sub:
        superscript = word.hasNumber ? -limited(number, largestOffset) : -1;
        return true;
    case RtfWord::Nosupersub:
        superscript = 0;
        return true;
    case RtfWord::Up:
        offsetInHalfPoints = word.hasNumber ? limited(number, largestOffset) : 6;
        return true;
    case RtfWord::Dn:
        offsetInHalfPoints = word.hasNumber ? -limited(number, largestOffset) : -6;
        return true;
    case RtfWord::Expnd:
        // Quarter points; \expndtw tells it finer and stands behind.
        kernInTwips = limited(qint64(number) * 5, largestOffset);
        return true;
    case RtfWord::Expndtw:
        kernInTwips = limited(number, largestOffset);
        return true;
    default:
        return false;
    }
}

TextAttributes RtfReadCharacters::attributes(RtfReadFonts& fonts, const RtfReadColors& colors,
                                             const RtfDocumentFacts& facts) const
{
    TextAttributes result;
    if (const auto named = fonts.find(font); named != fonts.end())
        result.font = rtfFace(*named);
    else
        result.font = Font::userFont(12);
    result.font->bold = result.font->bold || bold;
    result.font->italic = result.font->italic || italic;
    result.font->size = sizeInThousandths / 1000.0;
    result.foregroundColor = colors.color(foreground);
    // In Cocoa's files number 1 is the paper's white, which ends a background.
    if (!(facts.isCocoa && background == 1))
        result.backgroundColor = colors.color(background);
    result.underline = underline;
    result.underlineColor = colors.color(underlineColor);
    result.strikethrough = strikethrough;
    result.strikethroughColor = colors.color(strikethroughColor);
    result.superscript = superscript;
    result.baselineOffset = offsetInHalfPoints / 2.0;
    result.kern = kernInTwips / 20.0;
    return result;
}

} // namespace platform
