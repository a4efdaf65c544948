// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfReadFormats.h"

#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfParagraphFormat.h"

namespace platform {

namespace {

// More tab stops than any ruler shows; a file can name millions.
constexpr std::size_t maximumTabStops = 500;

// The stops that stand for none: see RtfParagraphFormat.h.
bool areDefaultTabStops(const std::vector<TextTab>& stops)
{
    if (stops.size() != defaultTabStopCount)
        return false;
    for (std::size_t index = 0; index < stops.size(); ++index) {
        const double location =
            pointsFromTwips(static_cast<qint64>(index + 1) * defaultTabStopTwips);
        if (stops[index] != TextTab{TextAlignment::Left, location})
            return false;
    }
    return true;
}

} // namespace

bool RtfReadParagraph::apply(const RtfReadWord& word)
{
    const qint32 number = word.number;
    switch (word.word) {
    case RtfWord::Pard:
        *this = RtfReadParagraph();
        return true;
    case RtfWord::Ql:
        alignment = TextAlignment::Left;
        return true;
    case RtfWord::Qr:
        alignment = TextAlignment::Right;
        return true;
    case RtfWord::Qc:
        alignment = TextAlignment::Center;
        return true;
    case RtfWord::Qj:
        alignment = TextAlignment::Justified;
        return true;
    case RtfWord::Qnatural:
        alignment = TextAlignment::Natural;
        return true;
    case RtfWord::Li:
        indent = number;
        return true;
    case RtfWord::Fi:
        firstLine = number;
        return true;
    case RtfWord::Ri:
        rightIndent = number;
        return true;
    case RtfWord::Sb:
        spaceBefore = number;
        return true;
    case RtfWord::Sa:
        spaceAfter = number;
        return true;
    case RtfWord::Sl:
        lineHeight = number;
        return true;
    case RtfWord::Slmult:
        isLineHeightMultiple = word.hasNumber && number != 0;
        return true;
    case RtfWord::Slleading:
        leading = number;
        return true;
    case RtfWord::Slmaximum:
        maximumLineHeight = number;
        return true;
    case RtfWord::Slminimum:
        minimumLineHeight = number;
        return true;
    case RtfWord::Tqr:
        nextTab = TextAlignment::Right;
        return true;
    case RtfWord::Tqc:
        nextTab = TextAlignment::Center;
        return true;
    case RtfWord::Tqdec:
        nextTab = TextAlignment::Right;
        return true;
    case RtfWord::Tb:
        nextTab = TextAlignment::Left;
        return true;
    case RtfWord::Tx:
        if (tabStops.size() < maximumTabStops)
            tabStops.push_back({nextTab, pointsFromTwips(number)});
        nextTab = TextAlignment::Left;
        return true;
    case RtfWord::Pardeftab:
        tabInterval = number;
        return true;
    case RtfWord::Pardirnatural:
        direction = WritingDirection::Natural;
        return true;
    case RtfWord::Rtlpar:
        direction = WritingDirection::RightToLeft;
        return true;
    case RtfWord::Ltrpar:
        direction = WritingDirection::LeftToRight;
        return true;
    case RtfWord::Outlinelevel:
        // Nine means body text.
        headerLevel = number >= 0 && number < 9 ? number + 1 : 0;
        return true;
    case RtfWord::Hyphpar:
        isHyphenated = word.isOn();
        return true;
    case RtfWord::Ls:
        list = number;
        return true;
    case RtfWord::Ilvl:
        listLevel = number;
        return true;
    case RtfWord::Intbl:
        isInTable = word.isOn();
        return true;
    case RtfWord::Itap:
        tableLevel = number;
        return true;
    default:
        return false;
    }
}

int RtfReadParagraph::depth() const
{
    // Cells within more than thirty others are read into the thirtieth.
    constexpr qint32 maximumDepth = 30;
    if (tableLevel > 0)
        return std::min(tableLevel, maximumDepth);
    return isInTable ? 1 : 0;
}

ParagraphStyle RtfReadParagraph::style(const RtfReadLists& lists,
                                       const RtfDocumentFacts& facts) const
{
    ParagraphStyle style;
    style.alignment = alignment;
    // Cocoa tells the natural direction, and nothing for left to right.
    style.direction = direction.value_or(facts.isCocoa ? WritingDirection::LeftToRight
                                                       : WritingDirection::Natural);
    style.headIndent = pointsFromTwips(indent);
    style.firstLineHeadIndent = pointsFromTwips(qint64(indent) + firstLine);
    style.tailIndent = rightIndent == 0 ? 0 : pointsFromTwips(-qint64(rightIndent));
    style.paragraphSpacingBefore = pointsFromTwips(spaceBefore);
    style.paragraphSpacing = pointsFromTwips(spaceAfter);
    style.lineSpacing = pointsFromTwips(leading);
    style.maximumLineHeight = pointsFromTwips(maximumLineHeight);
    style.minimumLineHeight = pointsFromTwips(minimumLineHeight);
    if (isLineHeightMultiple && lineHeight > 0) {
        style.lineHeightMultiple = lineHeight / 240.0;
    } else if (lineHeight > 0) {
        style.minimumLineHeight = pointsFromTwips(lineHeight);
    } else if (lineHeight < 0) {
        style.minimumLineHeight = pointsFromTwips(-qint64(lineHeight));
        style.maximumLineHeight = style.minimumLineHeight;
    }
    style.defaultTabInterval = pointsFromTwips(tabInterval);
    style.hyphenationFactor = isHyphenated ? 1 : 0;
    style.headerLevel = headerLevel;
    if (tabInterval != 0 || !areDefaultTabStops(tabStops))
        style.tabStops = tabStops;
    style.textLists = lists.chain(list, listLevel);
    if (style.textLists.empty() && ownList)
        style.textLists.push_back(ownList);
    return style;
}

} // namespace platform
