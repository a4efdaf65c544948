// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/AttributedString.h"
#include "platform/htmlimport/BlockStyle.h"
#include "platform/htmlimport/RunAttributes.h"
#include "platform/htmlimport/TextStyle.h"

#include <string_view>
#include <vector>

namespace platform::html {

// Turns the page's text and block boundaries into paragraphs. White space collapses here; each
// paragraph is held back until its end, when all that decides its style is known.
class TextFlow {
public:
    explicit TextFlow(const TextStylePointer& rootText);

    // Text of the page, UTF-8, as its style's white space and transform say.
    void addText(std::string_view utf8, const TextStylePointer& style);
    // Text of the page that keeps all its characters: blanks, and the one that stands for
    // attachments.
    void addVerbatim(std::string_view utf8, const TextStylePointer& style);
    // Text that the import itself makes.
    void insert(QStringView text, const TextStylePointer& style);
    void insertAttachment(const std::shared_ptr<TextAttachment>& attachment,
                          const TextStylePointer& style);
    void breakLine(const TextStylePointer& style);

    // Soft boundaries within a list item do not end its paragraph.
    enum class Boundary { Hard, Soft };
    // Margins in points. A margin of the browser's own style sheet has no effect at the top of a
    // text.
    struct Margin {
        double size = 0;
        bool isOwn = false;
    };
    void enterBlock(const BlockStylePointer& block, Margin top, Boundary boundary);
    // block: the one around.
    void leaveBlock(const BlockStylePointer& block, double bottomMargin, Boundary boundary);
    // A cell's text knows nothing of the margins before it.
    void forgetMargins();

    // What the next paragraph begins with: a list item's marker or a checklist's box.
    struct Prefix {
        QString text;
        TextStylePointer style;
        bool isListMarker = false;
        // A bullet gives way to a box that the item's own text begins with.
        bool yieldsToBox = false;
    };
    void setPrefix(Prefix prefix) { m_prefix = std::move(prefix); }
    [[nodiscard]] bool hasPendingPrefix() const { return m_prefix.has_value(); }
    [[nodiscard]] bool pendingPrefixIsBullet() const { return m_prefix && m_prefix->yieldsToBox; }
    void dropPrefix() { m_prefix.reset(); }

    // An empty paragraph, or the prefix alone.
    void addEmptyParagraph(const TextStylePointer& style);
    // How many paragraphs have ended.
    [[nodiscard]] qsizetype paragraphCount() const { return m_paragraphCount; }
    [[nodiscard]] bool isParagraphOpen() const { return m_isOpen; }

    [[nodiscard]] AttributedString finish();

private:
    struct Piece {
        qsizetype end = 0; // in the paragraph's text
        TextStylePointer style;
        std::shared_ptr<TextAttachment> attachment;
    };

    void addCollapsed(std::string_view utf8, const TextStylePointer& style);
    void addPreformatted(std::string_view utf8, const TextStylePointer& style);
    void addCode(std::string_view utf8, const TextStylePointer& style);

    void openParagraph(const TextStylePointer& style);
    void insertPrefix();
    void beforeContent(const TextStylePointer& style);
    void appendWord(std::string_view utf8, const TextStylePointer& style);
    void append(QStringView text, const TextStylePointer& style);
    void appendLineSeparator(const TextStylePointer& style);
    [[nodiscard]] bool isAtLineStart() const;
    void dropBlank();
    void dropTrailingBreak();
    void truncate(qsizetype length);

    void endParagraph(double spacingAfter);
    void resetParagraph();
    void yieldToBox();

    AttributedString m_result;
    RunAttributes m_runAttributes;
    qsizetype m_paragraphCount = 0;

    // The paragraph that is being filled.
    bool m_isOpen = false;
    QString m_text;
    std::vector<Piece> m_pieces;
    BlockStylePointer m_paragraphBlock;
    TextStylePointer m_firstStyle;
    ParagraphTraits m_traits;
    qsizetype m_prefixLength = 0;
    bool m_prefixYields = false;
    qsizetype m_lineStart = 0;     // position in m_text where its last line begins
    bool m_endsWithBreak = false;  // m_text's last character is a br that nothing has followed yet
    bool m_needsSoftBreak = false; // a soft boundary stands before what comes next
    TextStylePointer m_blank; // the style of a collapsed blank that stands before what comes next
    int m_codeBreaks = 0;     // line ends of code before what comes next

    std::optional<Prefix> m_prefix;
    BlockStylePointer m_block;

    // Margins between the paragraph before and the next one, collapsed.
    double m_marginBefore = 0;
    double m_lastSpacingAfter = 0;
    bool m_isAtTop = true;
};

} // namespace platform::html
