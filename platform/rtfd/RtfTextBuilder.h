// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/rtfd/RtfReadFormats.h"

#include <QString>

#include <array>
#include <vector>

namespace platform {

// Builds the text that is read. A paragraph's style is known at its end only, so its runs wait
// until then.
class RtfTextBuilder {
public:
    RtfTextBuilder(RtfReadFonts& fonts, const RtfReadColors& colors, const RtfDocumentFacts& facts)
        : m_fonts(fonts)
        , m_colors(colors)
        , m_facts(facts)
    {
    }

    void append(QStringView text, const RtfReadCharacters& format, const QString& link);
    void appendAttachment(std::shared_ptr<TextAttachment> attachment,
                          const RtfReadCharacters& format, const QString& link);

    // The paragraph that is open.
    [[nodiscard]] qsizetype paragraphLength() const { return m_paragraph.size(); }
    // Makes a tab, the marker and a tab of the text from a position on, the way in which a list's
    // marker stands in text; nothing of a marker without any character.
    void normaliseMarker(qsizetype start);
    // The style as the text shares it; none for the standard one.
    [[nodiscard]] std::shared_ptr<const ParagraphStyle> sharedStyle(ParagraphStyle style);
    void endParagraph(const std::shared_ptr<const ParagraphStyle>& style);

    [[nodiscard]] AttributedString takeText() { return std::move(m_text); }

private:
    struct Piece {
        qsizetype length = 0;
        RtfReadCharacters format;
        QString link;
        std::shared_ptr<TextAttachment> attachment;
    };
    // What pieces were last made into.
    struct Made {
        RtfReadCharacters format;
        QString link;
        const ParagraphStyle* style = nullptr;
        std::shared_ptr<const TextAttributes> attributes;
    };
    static constexpr std::size_t rememberedCount = 8;

    [[nodiscard]] std::shared_ptr<const TextAttributes>
    attributesFor(const Piece& piece, const std::shared_ptr<const ParagraphStyle>& style);

    RtfReadFonts& m_fonts;
    const RtfReadColors& m_colors;
    const RtfDocumentFacts& m_facts;
    AttributedString m_text;
    QString m_paragraph;
    std::vector<Piece> m_pieces;
    std::array<std::shared_ptr<const ParagraphStyle>, rememberedCount> m_styles;
    std::size_t m_nextStyle = 0;
    std::array<Made, rememberedCount> m_made;
    std::size_t m_nextMade = 0;
};

} // namespace platform
