// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfBodyWriter.h"

#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfParagraphFormat.h"
#include "platform/rtfd/RtfRowWriter.h"
#include "platform/rtfd/RtfTextEscapes.h"

namespace platform {

namespace {

// A list's marker between its two tabs is no longer than this.
constexpr qsizetype longestMarker = 64;

// The length of the marker with which a list's item begins: a tab, the marker, a tab; 0 when the
// text begins otherwise, as the further paragraphs of an item do.
qsizetype markerLength(QStringView paragraph)
{
    if (paragraph.isEmpty() || paragraph.front() != u'\t')
        return 0;
    const QStringView searched = paragraph.first(std::min(paragraph.size(), longestMarker + 2));
    const qsizetype end = searched.indexOf(u'\t', 1);
    if (end < 0 || searched.first(end).contains(QChar(AttributedString::attachmentCharacter)))
        return 0;
    return end + 1;
}

bool isOfAttachments(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        return character == QChar(AttributedString::attachmentCharacter);
    });
}

bool hasList(const ParagraphStyle* style)
{
    return style && std::any_of(style->textLists.begin(), style->textLists.end(),
                                [](const auto& list) { return list != nullptr; });
}

} // namespace

RtfBodyWriter::RtfBodyWriter(const AttributedString& text, RtfAttachmentNamer nameOf)
    : m_text(text)
    , m_nameOf(std::move(nameOf))
    , m_runs(text.runs())
{
}

void RtfBodyWriter::write()
{
    m_out.reserve(m_text.length() + m_text.length() / 4 + 256);
    const std::vector<RtfParagraph> paragraphs = paragraphsOf(m_text.string(), m_runs);
    const RtfTablePlan plan = planTables(paragraphs);
    for (const RtfTablePlan::Step& step : plan.steps) {
        switch (step.kind) {
        case RtfTablePlan::Kind::OpenRow:
            appendRowDefinition(m_out, plan.rows[step.index], m_colors);
            m_paragraphFormat.clear();
            break;
        case RtfTablePlan::Kind::Paragraph:
            writeParagraph(paragraphs[step.index], step.level, End::Paragraph);
            break;
        case RtfTablePlan::Kind::CellParagraph:
            writeParagraph(paragraphs[step.index], step.level, End::Cell);
            break;
        case RtfTablePlan::Kind::EmptyCell:
            writeEmptyCell(step.level);
            break;
        case RtfTablePlan::Kind::CloseRow: {
            // The line that the cell's end began belongs to no paragraph.
            m_out.chop(1);
            appendRowEnd(m_out, plan.rows[step.index], m_colors);
            m_paragraphFormat.clear();
            break;
        }
        }
    }
}

void RtfBodyWriter::writeParagraph(const RtfParagraph& paragraph, int level, End end)
{
    writeParagraphFormat(paragraph.style, level);
    TextRange rest = paragraph.range;
    if (hasList(paragraph.style)) {
        const QStringView text = QStringView(m_text.string()).mid(rest.location, rest.length);
        if (const qsizetype length = markerLength(text); length > 0) {
            writeMarker({rest.location, length});
            rest = {rest.location + length, rest.length - length};
        }
    }
    if (end == End::Paragraph && !paragraph.isTerminated)
        end = End::None;
    if (end == End::Cell && !paragraph.isTerminated) {
        writeRuns(rest, End::None, level);
        writeCellEnd(level);
        return;
    }
    writeRuns(rest, end, level);
}

void RtfBodyWriter::writeParagraphFormat(const ParagraphStyle* style, int level)
{
    static const ParagraphStyle standardStyle;
    if (!style)
        style = &standardStyle;
    if (!m_paragraphFormat.isEmpty() && style == m_style && level == m_level)
        return;
    RtfOutput& format = m_nextFormat;
    format.clear();
    appendParagraphFormat(format, *style, level);
    if (hasList(style)) {
        const RtfListTable::Reference reference = m_lists.referenceTo(style->textLists);
        appendControl(format, "\\ls", reference.list);
        appendControl(format, "\\ilvl", reference.level);
    }
    m_style = style;
    m_level = level;
    if (format.view() == m_paragraphFormat.view())
        return;
    m_out.append(format.view());
    std::swap(m_paragraphFormat, m_nextFormat);
    m_colorWord = RtfColorWord::Always;
}

// A cell that has no paragraph: one that another reaches into, or one that ends with a table.
void RtfBodyWriter::writeEmptyCell(int level)
{
    appendControl(m_out, "\\pard\\intbl\\itap", level);
    writeCellEnd(level);
}

void RtfBodyWriter::writeCellEnd(int level)
{
    m_out.append(level > 1 ? "\\nestcell \n" : "\\cell \n");
    m_paragraphFormat.clear();
}

void RtfBodyWriter::useRunAt(qsizetype location)
{
    while (m_runs[m_run].range.end() <= location) {
        ++m_run;
        m_hasRunFormat = false;
    }
}

void RtfBodyWriter::makeRunFormat()
{
    if (m_hasRunFormat)
        return;
    m_hasRunFormat = true;
    // A few sets of attributes take turns in most text.
    const TextAttributes* attributes = m_runs[m_run].attributes.get();
    for (const KnownFormat& known : m_knownFormats) {
        if (known.attributes == attributes) {
            m_runFormat = known.format;
            return;
        }
    }
    m_runFormat = characterFormat(*attributes, m_fonts, m_colors);
    m_knownFormats[m_nextKnownFormat] = {attributes, m_runFormat};
    m_nextKnownFormat = (m_nextKnownFormat + 1) % m_knownFormats.size();
}

void RtfBodyWriter::applyFormat()
{
    makeRunFormat();
    if (m_colorWord == RtfColorWord::WhereChanged && m_format == m_runFormat)
        return;
    appendFormatChange(m_out, m_format, m_runFormat, m_colorWord);
    m_format = m_runFormat;
    m_colorWord = RtfColorWord::WhereChanged;
}

void RtfBodyWriter::writeMarker(TextRange range)
{
    useRunAt(range.location);
    applyFormat();
    m_out.append("{\\listtext");
    const RtfCharacterFormat outer = m_format;
    m_isInMarker = true;
    writeRuns(range, End::None, 0);
    m_isInMarker = false;
    m_out.append('}');
    m_format = outer;
}

void RtfBodyWriter::writeRuns(TextRange range, End end, int level)
{
    const QStringView string(m_text.string());
    const qsizetype contentEnd = range.end() - (end == End::None ? 0 : 1);
    qsizetype position = range.location;
    while (position < contentEnd) {
        useRunAt(position);
        const AttributedString::Run& run = m_runs[m_run];
        const qsizetype pieceEnd = std::min(run.range.end(), contentEnd);
        const QStringView piece = string.sliced(position, pieceEnd - position);
        position = pieceEnd;
        if (!m_nameOf && run.attributes->attachment && isOfAttachments(piece))
            continue;
        if (run.attributes->link != m_link)
            openLink(run.attributes->link);
        applyFormat();
        writeText(piece, *run.attributes);
    }
    if (end == End::None) {
        closeLink();
        return;
    }
    useRunAt(contentEnd);
    if (end == End::Cell || m_runs[m_run].attributes->link != m_link)
        closeLink();
    if (end == End::Paragraph && m_runs[m_run].attributes->link != m_link)
        openLink(m_runs[m_run].attributes->link);
    applyFormat();
    if (end == End::Cell) {
        writeCellEnd(level);
        return;
    }
    m_out.append("\\\n");
    closeLink();
}

void RtfBodyWriter::writeText(QStringView text, const TextAttributes& attributes)
{
    if (!attributes.attachment) {
        if (m_isInMarker)
            appendRtfMarker(m_out, text);
        else
            appendRtfText(m_out, text);
        return;
    }
    while (!text.isEmpty()) {
        const qsizetype place = text.indexOf(QChar(AttributedString::attachmentCharacter));
        appendRtfText(m_out, place < 0 ? text : text.first(place));
        if (place < 0)
            return;
        writeAttachment(*attributes.attachment);
        text = text.sliced(place + 1);
    }
}

void RtfBodyWriter::writeAttachment(const TextAttachment& attachment)
{
    if (!m_nameOf)
        return;
    m_out.append("{{\\NeXTGraphic ");
    appendRtfFileName(m_out, m_nameOf(attachment));
    // Both sizes are due even when they are 0: there are readers that drop an attachment without
    // them.
    appendControl(m_out, " \\width", twipsFromPoints(attachment.size().width));
    appendControl(m_out, " \\height", twipsFromPoints(attachment.size().height));
    // The byte holds the attachment's place in the text.
    m_out.append("\n}\xAC}");
}

// Whatever a field changes is in force only within it.
void RtfBodyWriter::openLink(const QString& link)
{
    closeLink();
    if (link.isEmpty())
        return;
    m_formatBeforeLink = m_format;
    m_link = link;
    m_out.append("{\\field{\\*\\fldinst{HYPERLINK \"");
    appendRtfUrl(m_out, link);
    m_out.append("\"}}{\\fldrslt ");
}

void RtfBodyWriter::closeLink()
{
    if (m_link.isEmpty())
        return;
    m_link.clear();
    m_out.append("}}");
    m_format = m_formatBeforeLink;
}

} // namespace platform
