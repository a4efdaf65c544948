// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfBodyReader.h"

#include "platform/rtfd/RtfControlWords.h"

namespace platform {

namespace {

// What follows the name of an attachment within its group.
constexpr char attachmentPlaceholder = '\xAC';

} // namespace

RtfBodyReader::RtfBodyReader(QByteArrayView rtf, const RtfAttachmentMaker& attachmentFor)
    : m_tokens(rtf)
    , m_attachmentFor(attachmentFor)
    , m_builder(m_fonts, m_colors, m_facts)
    , m_tables(m_colors, m_facts, static_cast<std::size_t>(rtf.size()))
{
    State first;
    first.paragraph = std::make_shared<RtfReadParagraph>();
    m_states.push_back(first);
}

AttributedString RtfBodyReader::read()
{
    while (!m_isOver) {
        const RtfToken token = m_tokens.next();
        if (token.kind == RtfToken::Kind::End)
            break;
        readToken(token);
    }
    flushBytes();
    if (m_builder.paragraphLength() > 0)
        m_builder.endParagraph(currentStyle(state().paragraph->depth()));
    m_tables.end();
    return m_builder.takeText();
}

RtfReadParagraph& RtfBodyReader::changedParagraph()
{
    std::shared_ptr<RtfReadParagraph>& paragraph = state().paragraph;
    if (paragraph.use_count() > 1)
        paragraph = std::make_shared<RtfReadParagraph>(*paragraph);
    return *paragraph;
}

void RtfBodyReader::readToken(const RtfToken& token)
{
    switch (token.kind) {
    case RtfToken::Kind::GroupOpen:
        openGroup();
        break;
    case RtfToken::Kind::GroupClose:
        closeGroup();
        break;
    case RtfToken::Kind::Text:
        readText(token.bytes);
        break;
    case RtfToken::Kind::Byte:
        if (!skipsSubstitute())
            appendByte(token.symbol);
        break;
    case RtfToken::Kind::Symbol:
        readSymbol(token.symbol);
        break;
    case RtfToken::Kind::Word:
        readWord(token);
        break;
    case RtfToken::Kind::Binary:
    case RtfToken::Kind::End:
        break;
    }
}

bool RtfBodyReader::skipsSubstitute()
{
    if (m_toSkip == 0)
        return false;
    --m_toSkip;
    return true;
}

void RtfBodyReader::readText(QByteArrayView bytes)
{
    const qsizetype skipped = std::min(m_toSkip, bytes.size());
    m_toSkip -= skipped;
    bytes = bytes.sliced(skipped);
    if (m_placeholderDepth == m_states.size() && !bytes.isEmpty()) {
        m_placeholderDepth = 0;
        if (bytes.front() == attachmentPlaceholder)
            bytes = bytes.sliced(1);
    }
    m_bytes.append(bytes);
}

void RtfBodyReader::appendByte(char byte)
{
    if (m_placeholderDepth == m_states.size()) {
        m_placeholderDepth = 0;
        if (byte == attachmentPlaceholder)
            return;
    }
    m_bytes.append(byte);
}

void RtfBodyReader::flushBytes()
{
    if (m_bytes.isEmpty())
        return;
    const int font = state().characters.font;
    if (font != m_codePageFont || font < 0) {
        const auto named = m_fonts.constFind(font);
        m_codePage = named == m_fonts.cend() ? m_facts.codePage : named->codePage(m_facts);
        m_codePageFont = font;
    }
    m_decoded.resize(0);
    m_decoders.append(m_decoded, m_bytes, m_codePage);
    m_bytes.resize(0);
    appendText(m_decoded);
}

void RtfBodyReader::appendText(QStringView text)
{
    m_isBare = false;
    m_builder.append(text, state().characters, state().link);
}

void RtfBodyReader::appendUnit(qint32 number)
{
    flushBytes();
    const QChar unit(static_cast<char16_t>(number));
    appendText(QStringView(&unit, 1));
    m_toSkip = state().substitutes;
}

void RtfBodyReader::readSymbol(char symbol)
{
    if (symbol == '*') {
        readStarredGroup();
        return;
    }
    if (skipsSubstitute())
        return;
    switch (symbol) {
    case '\\':
    case '{':
    case '}':
        appendByte(symbol);
        break;
    case '\n':
    case '\r':
        endParagraph();
        break;
    case '\t':
        appendByte('\t');
        break;
    case '~':
        flushBytes();
        appendText(u"\u00A0");
        break;
    case '-':
        flushBytes();
        appendText(u"\u00AD");
        break;
    case '_':
        flushBytes();
        appendText(u"\u2011");
        break;
    default:
        break;
    }
}

std::shared_ptr<const ParagraphStyle> RtfBodyReader::currentStyle(int depth)
{
    const auto blocks = m_tables.blocksAt(depth);
    if (blocks.empty() && state().paragraph == m_styledParagraph)
        return m_style;
    ParagraphStyle style = state().paragraph->style(m_lists, m_facts);
    style.textBlocks = blocks;
    auto shared = m_builder.sharedStyle(std::move(style));
    if (blocks.empty()) {
        m_styledParagraph = state().paragraph;
        m_style = shared;
    }
    return shared;
}

void RtfBodyReader::endParagraph()
{
    flushBytes();
    appendText(u"\n");
    m_builder.endParagraph(currentStyle(state().paragraph->depth()));
}

void RtfBodyReader::endCell(int depth)
{
    flushBytes();
    // Cocoa writes a cell that has no paragraph without a format; others write continued cells with
    // one.
    const bool hasParagraph = m_builder.paragraphLength() > 0 ||
                              !((m_facts.isCocoa && m_isBare) || m_tables.isContinuedCell(depth));
    if (hasParagraph) {
        appendText(u"\n");
        m_builder.endParagraph(currentStyle(depth));
    }
    m_tables.endCell(depth);
    m_isBare = false;
}

bool RtfBodyReader::readStructureWord(RtfWord word)
{
    switch (word) {
    case RtfWord::Par:
    case RtfWord::Sect:
        endParagraph();
        return true;
    case RtfWord::Cell:
        endCell(1);
        return true;
    case RtfWord::Nestcell:
        endCell(m_tables.innerDepth(state().paragraph->depth()));
        return true;
    case RtfWord::Row:
        flushBytes();
        m_tables.endRow(1);
        return true;
    case RtfWord::Nestrow:
        flushBytes();
        m_tables.endInnerRow();
        return true;
    case RtfWord::Listtext:
    case RtfWord::Pntext:
        flushBytes();
        state().isMarker = true;
        state().markerStart = m_builder.paragraphLength();
        return true;
    default:
        return false;
    }
}

} // namespace platform
