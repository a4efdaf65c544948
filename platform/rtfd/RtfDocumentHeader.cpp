// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfDocumentHeader.h"

#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfTextEscapes.h"

#include <cmath>

namespace platform {

namespace {

// The writer of macOS 12. Readers take its forms for those of this file: sizes of attachments,
// white as the background's end, natural direction only where it is told.
constexpr int cocoaWriterVersion = 2639;

int byteFrom(double component)
{
    return std::isnan(component)
               ? 0
               : static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
}

void appendBackground(RtfOutput& out, const Color& color)
{
    out.append(
        "{\\*\\background "
        "{\\shp{\\*\\shpinst\\shpleft0\\shptop0\\shpright0\\shpbottom0\\shpfhdr0\\shpbxmargin"
        "\\shpbymargin\\shpwr0\\shpwrk0\\shpfblwtxt1\\shpz0\\shplid1025{\\sp{\\sn shapeType}{\\sv "
        "1}}"
        "{\\sp{\\sn fFlipH}{\\sv 0}}{\\sp{\\sn fFlipV}{\\sv 0}}{\\sp{\\sn fillColor}{\\sv ");
    appendControl(out, "",
                  byteFrom(color.blue) * 65536 + byteFrom(color.green) * 256 + byteFrom(color.red));
    out.append(
        "}}{\\sp{\\sn fFilled}{\\sv 1}}{\\sp{\\sn lineWidth}{\\sv 0}}{\\sp{\\sn fLine}{\\sv 0}}"
        "{\\sp{\\sn bWMode}{\\sv 9}}{\\sp{\\sn fBackground}{\\sv 1}}}}}\n");
}

void appendInformation(RtfOutput& out, const DocumentAttributes& attributes)
{
    const std::pair<const char*, const QString&> entries[] = {
        {"{\\title ", attributes.title},
        {"{\\subject ", attributes.subject},
        {"{\\author ", attributes.author},
        {"{\\*\\company ", attributes.company},
        {"{\\*\\copyright ", attributes.copyright},
        {"{\\keywords ", attributes.keywords},
        {"{\\doccomm ", attributes.comment},
    };
    bool isOpen = false;
    for (const auto& [word, value] : entries) {
        if (value.isEmpty())
            continue;
        out.append(isOpen ? "\n" : "{\\info\n").append(word);
        isOpen = true;
        appendRtfName(out, value);
        out.append('}');
    }
    if (isOpen)
        out.append('}');
}

void appendLength(RtfOutput& out, const char* word, const std::optional<double>& points)
{
    if (points)
        appendControl(out, word, twipsFromPoints(*points));
}

void appendLayout(RtfOutput& out, const DocumentAttributes& attributes)
{
    const qsizetype start = out.size();
    appendInformation(out, attributes);
    appendLength(out, "\\paperw", attributes.paperWidth);
    appendLength(out, "\\paperh", attributes.paperHeight);
    appendLength(out, "\\margl", attributes.leftMargin);
    appendLength(out, "\\margr", attributes.rightMargin);
    appendLength(out, "\\margb", attributes.bottomMargin);
    appendLength(out, "\\margt", attributes.topMargin);
    appendLength(out, "\\vieww", attributes.viewWidth);
    appendLength(out, "\\viewh", attributes.viewHeight);
    if (attributes.viewKind)
        appendControl(out, "\\viewkind", *attributes.viewKind);
    if (attributes.viewScale)
        appendControl(out, "\\viewscale", *attributes.viewScale);
    if (out.size() > start)
        out.append('\n');
    if (attributes.hyphenationFactor) {
        appendControl(out, "\\hyphauto1\\hyphfactor",
                      std::lround(std::clamp(*attributes.hyphenationFactor, 0.0, 1.0) * 100));
        out.append('\n');
    }
    if (attributes.defaultTabInterval) {
        appendControl(out, "\\deftab", twipsFromPoints(*attributes.defaultTabInterval));
        out.append('\n');
    }
}

} // namespace

RtfOutput rtfHeader(const RtfFontTable& fonts, const RtfColorTable& colors,
                     const RtfListTable& lists, const DocumentAttributes& attributes)
{
    RtfOutput header;
    appendControl(header, "{\\rtf1\\ansi\\ansicpg1252\\cocoartf", cocoaWriterVersion);
    header.append("\n\\cocoatextscaling0\\cocoaplatform0");
    fonts.write(header);
    colors.write(header);
    if (!lists.isEmpty())
        lists.write(header);
    appendLayout(header, attributes);
    if (attributes.backgroundColor)
        appendBackground(header, *attributes.backgroundColor);
    return header;
}

} // namespace platform
