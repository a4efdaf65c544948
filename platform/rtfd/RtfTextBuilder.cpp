// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfTextBuilder.h"

namespace platform {

void RtfTextBuilder::append(QStringView text, const RtfReadCharacters& format, const QString& link)
{
    if (text.isEmpty())
        return;
    m_paragraph.append(text);
    if (!m_pieces.empty()) {
        Piece& last = m_pieces.back();
        if (!last.attachment && last.format == format && last.link == link) {
            last.length += text.size();
            return;
        }
    }
    m_pieces.push_back({text.size(), format, link, nullptr});
}

void RtfTextBuilder::appendAttachment(std::shared_ptr<TextAttachment> attachment,
                                      const RtfReadCharacters& format, const QString& link)
{
    m_paragraph.append(QChar(AttributedString::attachmentCharacter));
    m_pieces.push_back({1, format, link, std::move(attachment)});
}

void RtfTextBuilder::normaliseMarker(qsizetype start)
{
    QString marker = m_paragraph.mid(start).trimmed();
    // Where symbol fonts keep their bullets.
    if (marker == u"\uF0B7")
        marker = QStringLiteral("\u2022");
    RtfReadCharacters format;
    QString link;
    m_paragraph.truncate(start);
    qsizetype length = 0;
    std::size_t kept = 0;
    for (; kept < m_pieces.size() && length + m_pieces[kept].length <= start; ++kept)
        length += m_pieces[kept].length;
    if (kept < m_pieces.size()) {
        format = m_pieces[kept].format;
        link = m_pieces[kept].link;
        m_pieces[kept].length = start - length;
        m_pieces.resize(start > length ? kept + 1 : kept);
    }
    if (!marker.isEmpty())
        append(QString(u'\t' + marker + u'\t'), format, link);
}

std::shared_ptr<const ParagraphStyle> RtfTextBuilder::sharedStyle(ParagraphStyle style)
{
    if (style == ParagraphStyle())
        return nullptr;
    for (const auto& known : m_styles) {
        if (known && *known == style)
            return known;
    }
    auto shared = std::make_shared<const ParagraphStyle>(std::move(style));
    m_styles[m_nextStyle] = shared;
    m_nextStyle = (m_nextStyle + 1) % rememberedCount;
    return shared;
}

std::shared_ptr<const TextAttributes> RtfTextBuilder::attributesFor(
    const Piece& piece, const std::shared_ptr<const ParagraphStyle>& style)
{
    if (!piece.attachment) {
        for (const Made& made : m_made) {
            if (made.attributes && made.style == style.get() && made.format == piece.format
                && made.link == piece.link)
                return made.attributes;
        }
    }
    TextAttributes attributes = piece.format.attributes(m_fonts, m_colors, m_facts);
    attributes.link = piece.link;
    attributes.paragraphStyle = style;
    attributes.attachment = piece.attachment;
    auto shared = std::make_shared<const TextAttributes>(std::move(attributes));
    if (!piece.attachment) {
        m_made[m_nextMade] = {piece.format, piece.link, style.get(), shared};
        m_nextMade = (m_nextMade + 1) % rememberedCount;
    }
    return shared;
}

void RtfTextBuilder::endParagraph(const std::shared_ptr<const ParagraphStyle>& style)
{
    const QStringView text(m_paragraph);
    qsizetype start = 0;
    for (const Piece& piece : m_pieces) {
        m_text.append(text.sliced(start, piece.length), attributesFor(piece, style));
        start += piece.length;
    }
    m_paragraph.resize(0);
    m_pieces.clear();
}

} // namespace platform
