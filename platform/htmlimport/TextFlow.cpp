// SPDX-License-Identifier: MIT
#include "platform/htmlimport/TextFlow.h"

#include <algorithm>
#include <utility>

namespace platform::html {

namespace {

constexpr QChar lineSeparator(u'\x2028');
constexpr QStringView uncheckedBox = u"\u2610";
constexpr QStringView checkedBox = u"\u2611\uFE0E";

// Paragraphs and their pieces of a page are many, but small; what one huge paragraph took is given
// back.
constexpr qsizetype keptCapacity = 1 << 16;

bool isBox(QStringView text)
{
    return text == uncheckedBox || text == checkedBox;
}

} // namespace

TextFlow::TextFlow(const TextStylePointer& rootText)
    : m_firstStyle(rootText)
    , m_block(std::make_shared<const BlockStyle>())
{
}

void TextFlow::openParagraph(const TextStylePointer& style)
{
    if (m_isOpen)
        return;
    m_isOpen = true;
    m_firstStyle = style;
    m_paragraphBlock = m_block;
    m_traits = {};
    m_traits.spacingBefore = std::max(0.0, m_marginBefore - m_lastSpacingAfter);
    m_marginBefore = 0;
    m_isAtTop = false;
    if (m_prefix)
        insertPrefix();
}

void TextFlow::insertPrefix()
{
    const Prefix prefix = std::move(*m_prefix);
    m_prefix.reset();
    m_traits.hasMarker = prefix.isListMarker;
    if (!prefix.text.isEmpty())
        append(prefix.text, prefix.style);
    m_prefixLength = m_text.size();
    m_prefixYields = prefix.yieldsToBox;
    m_lineStart = m_text.size();
}

// Whatever was held back stands before the content that comes now.
void TextFlow::beforeContent(const TextStylePointer& style)
{
    openParagraph(style);
    if (m_needsSoftBreak) {
        m_needsSoftBreak = false;
        appendLineSeparator(style);
    }
    for (int breaks = std::exchange(m_codeBreaks, 0); breaks > 0; --breaks)
        breakLine(style);
    openParagraph(style);
    if (m_blank) {
        const TextStylePointer blank = std::move(m_blank);
        m_blank.reset();
        append(u" ", blank);
    }
    m_endsWithBreak = false;
}

void TextFlow::append(QStringView text, const TextStylePointer& style)
{
    m_text.append(text);
    if (m_pieces.empty() || m_pieces.back().style != style || m_pieces.back().attachment)
        m_pieces.push_back({m_text.size(), style, nullptr});
    else
        m_pieces.back().end = m_text.size();
}

// A blank at the end of a line is nothing. A box alone in its line keeps it: without it, nobody
// knows it for one.
void TextFlow::dropBlank()
{
    if (m_blank && isBox(QStringView(m_text).mid(m_lineStart)))
        append(u" ", m_pieces.back().style);
    m_blank.reset();
}

void TextFlow::appendLineSeparator(const TextStylePointer& style)
{
    dropBlank();
    append(QStringView(&lineSeparator, 1), style);
    m_lineStart = m_text.size();
}

bool TextFlow::isAtLineStart() const
{
    return m_needsSoftBreak || m_text.size() == m_lineStart;
}

void TextFlow::insert(QStringView text, const TextStylePointer& style)
{
    if (style->hidden || text.isEmpty())
        return;
    beforeContent(style);
    append(text, style);
    // A blank of the page that follows a blank of ours would be one too many.
    if (text.back() == u' ')
        m_lineStart = m_text.size();
}

void TextFlow::insertAttachment(const std::shared_ptr<TextAttachment>& attachment,
                                const TextStylePointer& style)
{
    if (style->hidden)
        return;
    beforeContent(style);
    m_text.append(QChar(AttributedString::attachmentCharacter));
    m_pieces.push_back({m_text.size(), style, attachment});
}

void TextFlow::breakLine(const TextStylePointer& style)
{
    if (style->hidden)
        return;
    openParagraph(style);
    if (m_needsSoftBreak) {
        m_needsSoftBreak = false;
        appendLineSeparator(style);
    }
    if (m_block->breaksAreSoft) {
        appendLineSeparator(style);
        m_endsWithBreak = true;
    } else {
        endParagraph(0);
    }
}

void TextFlow::truncate(qsizetype length)
{
    m_text.truncate(length);
    while (!m_pieces.empty() && m_pieces.back().end > length) {
        const qsizetype start = m_pieces.size() > 1 ? m_pieces[m_pieces.size() - 2].end : 0;
        if (start < length) {
            m_pieces.back().end = length;
            break;
        }
        m_pieces.pop_back();
    }
}

// The last br of a block only ends its line, which the block's end does as well.
void TextFlow::dropTrailingBreak()
{
    dropBlank();
    m_codeBreaks = 0;
    if (!m_endsWithBreak)
        return;
    m_endsWithBreak = false;
    truncate(m_text.size() - 1);
    m_lineStart = std::min(m_lineStart, m_text.size());
}

void TextFlow::enterBlock(const BlockStylePointer& block, Margin top, Boundary boundary)
{
    if (m_isOpen && boundary == Boundary::Soft) {
        dropTrailingBreak();
        m_needsSoftBreak = true;
    } else {
        if (m_isOpen)
            endParagraph(0);
        if (!m_isAtTop || top.isOwn)
            m_marginBefore = std::max(m_marginBefore, top.size);
    }
    m_block = block;
}

void TextFlow::leaveBlock(const BlockStylePointer& block, double bottomMargin, Boundary boundary)
{
    if (m_isOpen && boundary == Boundary::Soft) {
        dropTrailingBreak();
        m_needsSoftBreak = true;
    } else if (m_isOpen) {
        endParagraph(bottomMargin);
    } else {
        m_blank.reset();
        m_codeBreaks = 0;
        m_marginBefore = std::max(m_marginBefore, m_isAtTop ? 0 : bottomMargin);
    }
    m_block = block;
}

void TextFlow::forgetMargins()
{
    m_marginBefore = 0;
    m_lastSpacingAfter = 0;
    m_isAtTop = true;
}

void TextFlow::addEmptyParagraph(const TextStylePointer& style)
{
    openParagraph(style);
    endParagraph(0);
}

void TextFlow::yieldToBox()
{
    const QStringView own = QStringView(m_text).mid(m_prefixLength);
    if (!m_prefixYields || !(own.startsWith(uncheckedBox) || own.startsWith(checkedBox)))
        return;
    m_text.remove(0, m_prefixLength);
    for (Piece& piece : m_pieces)
        piece.end -= m_prefixLength;
    std::erase_if(m_pieces, [](const Piece& piece) { return piece.end <= 0; });
    m_prefixLength = 0;
    m_traits.hasMarker = false;
    auto block = std::make_shared<BlockStyle>(*m_paragraphBlock);
    if (!block->lists.empty())
        block->lists.pop_back();
    m_paragraphBlock = std::move(block);
}

void TextFlow::endParagraph(double spacingAfter)
{
    dropTrailingBreak();
    yieldToBox();

    m_traits.spacingAfter = spacingAfter;
    const auto paragraphStyle = m_runAttributes.paragraphStyle(m_paragraphBlock, m_traits);
    qsizetype start = 0;
    for (const Piece& piece : m_pieces) {
        const QStringView text = QStringView(m_text).sliced(start, piece.end - start);
        if (piece.attachment) {
            TextAttributes attributes = piece.style->attributes;
            attributes.attachment = piece.attachment;
            attributes.paragraphStyle = paragraphStyle;
            m_result.append(text, std::make_shared<const TextAttributes>(std::move(attributes)));
        } else {
            m_result.append(text, m_runAttributes.of(piece.style, paragraphStyle));
        }
        start = piece.end;
    }
    const TextStylePointer& endStyle = m_pieces.empty() ? m_firstStyle : m_pieces.back().style;
    m_result.append(u"\n", m_runAttributes.plain(endStyle, paragraphStyle));
    ++m_paragraphCount;
    m_lastSpacingAfter = spacingAfter;
    resetParagraph();
}

void TextFlow::resetParagraph()
{
    m_isOpen = false;
    if (m_text.capacity() > keptCapacity)
        m_text = QString();
    else
        m_text.resize(0);
    m_pieces.clear();
    m_prefixLength = 0;
    m_prefixYields = false;
    m_lineStart = 0;
    m_endsWithBreak = false;
    m_needsSoftBreak = false;
    m_blank.reset();
}

AttributedString TextFlow::finish()
{
    if (m_isOpen)
        endParagraph(0);
    return std::move(m_result);
}

} // namespace platform::html
