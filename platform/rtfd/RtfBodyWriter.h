// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/rtfd/RtfCharacterFormat.h"
#include "platform/rtfd/RtfListTable.h"
#include "platform/rtfd/RtfOutput.h"
#include "platform/rtfd/RtfTablePlan.h"
#include "platform/rtfd/RtfWriter.h"

#include <QHash>

namespace platform {

// Writes the text and gathers, on the way, the fonts, colours and lists that the header must list.
class RtfBodyWriter {
public:
    // nameOf: empty when attachments are to be left out.
    RtfBodyWriter(const AttributedString& text, RtfAttachmentNamer nameOf);

    void write();

    [[nodiscard]] QByteArrayView body() const { return m_out.view(); }
    [[nodiscard]] const RtfFontTable& fonts() const { return m_fonts; }
    [[nodiscard]] const RtfColorTable& colors() const { return m_colors; }
    [[nodiscard]] const RtfListTable& lists() const { return m_lists; }

private:
    enum class End { None, Paragraph, Cell };

    void writeParagraph(const RtfParagraph& paragraph, int level, End end);
    void writeParagraphFormat(const ParagraphStyle* style, int level);
    void writeEmptyCell(int level);
    void writeCellEnd(int level);
    void writeRuns(TextRange range, End end, int level);
    void writeText(QStringView text, const TextAttributes& attributes);
    void writeAttachment(const TextAttachment& attachment);
    void writeMarker(TextRange range);
    void useRunAt(qsizetype location);
    void makeRunFormat();
    void applyFormat();
    void openLink(const QString& link);
    void closeLink();

    const AttributedString& m_text;
    RtfAttachmentNamer m_nameOf;
    RtfOutput m_out;
    RtfFontTable m_fonts;
    RtfColorTable m_colors;
    RtfListTable m_lists;

    std::vector<AttributedString::Run> m_runs;
    std::size_t m_run = 0;          // the run in use
    RtfCharacterFormat m_runFormat; // its format
    bool m_hasRunFormat = false;
    struct KnownFormat {
        const TextAttributes* attributes = nullptr;
        RtfCharacterFormat format;
    };
    std::array<KnownFormat, 8> m_knownFormats;
    std::size_t m_nextKnownFormat = 0;

    RtfCharacterFormat m_format; // what is in force in the file
    RtfColorWord m_colorWord = RtfColorWord::Always;
    RtfCharacterFormat m_formatBeforeLink;
    QString m_link;
    bool m_isInMarker = false;

    RtfOutput m_paragraphFormat; // in force
    RtfOutput m_nextFormat;      // while it is made
    const ParagraphStyle* m_style = nullptr; // whose format that is
    int m_level = -1;
};

} // namespace platform
