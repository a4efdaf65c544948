// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfBodyReader.h"
#include "platform/rtfd/RtfControlWords.h"
#include "platform/rtfd/RtfGroupTokens.h"

#include <QStringDecoder>

namespace platform {

namespace {

// Names are UTF-8; older files have them in the document's own code page.
QString decodedName(const QByteArray& bytes, RtfDecoders& decoders, int codePage)
{
    const QByteArray trimmed = bytes.trimmed();
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString name = utf8(trimmed);
    if (!utf8.hasError())
        return name;
    QString other;
    decoders.append(other, trimmed, codePage);
    return other;
}

// A picture's size on the page, scaled: \picwgoal twips, \picscalex per cent.
struct PictureSize {
    qint32 goal = 0;
    qint32 scale = 100;
    [[nodiscard]] double points() const
    {
        return pointsFromTwips(std::max(goal, 0)) * std::clamp(scale, 1, 10000) / 100.0;
    }
};

} // namespace

// {\NeXTGraphic name \width \height}: a file that lies beside the text, then its placeholder.
void RtfBodyReader::readAttachment()
{
    QByteArray name;
    TextAttachment::Size size;
    bool isNameOver = false;
    RtfGroupTokens group(m_tokens);
    while (const RtfToken* next = group.next()) {
        const RtfToken& token = *next;
        switch (token.kind) {
        case RtfToken::Kind::Text:
            if (!isNameOver)
                name.append(token.bytes);
            break;
        case RtfToken::Kind::Byte:
            if (!isNameOver)
                name.append(token.symbol);
            break;
        case RtfToken::Kind::Symbol:
            if (!isNameOver && (token.symbol == '\\' || token.symbol == '{' || token.symbol == '}'))
                name.append(token.symbol);
            break;
        case RtfToken::Kind::Word:
            if (token.bytes == "u") {
                name.append(QString(QChar(static_cast<char16_t>(token.number))).toUtf8());
                break;
            }
            if (token.bytes == "uc")
                break;
            isNameOver = true;
            if (token.bytes == "width")
                size.width = pointsFromTwips(token.number);
            else if (token.bytes == "height")
                size.height = pointsFromTwips(token.number);
            break;
        default:
            break;
        }
    }
    leaveReadGroup();
    const QString filename = decodedName(name, m_decoders, m_facts.codePage);
    std::shared_ptr<TextAttachment> attachment =
        m_attachmentFor ? m_attachmentFor(filename) : nullptr;
    if (!attachment)
        attachment = std::make_shared<TextAttachment>();
    attachment->setSize(size);
    flushBytes();
    m_isBare = false;
    m_builder.appendAttachment(std::move(attachment), state().characters, state().link);
    m_placeholderDepth = m_states.size();
}

void RtfBodyReader::readPicture()
{
    QByteArray digits;
    QByteArray contents;
    const char* extension = nullptr;
    PictureSize width;
    PictureSize height;
    RtfGroupTokens group(m_tokens);
    while (const RtfToken* next = group.next()) {
        const RtfToken& token = *next;
        switch (token.kind) {
        case RtfToken::Kind::GroupOpen:
            group.skipInnermost();
            break;
        case RtfToken::Kind::Text:
            digits.append(token.bytes);
            break;
        case RtfToken::Kind::Binary:
            contents.append(token.bytes);
            break;
        case RtfToken::Kind::Word:
            if (token.bytes == "pngblip")
                extension = "png";
            else if (token.bytes == "jpegblip")
                extension = "jpeg";
            else if (token.bytes == "picwgoal")
                width.goal = token.number;
            else if (token.bytes == "pichgoal")
                height.goal = token.number;
            else if (token.bytes == "picscalex")
                width.scale = token.number;
            else if (token.bytes == "picscaley")
                height.scale = token.number;
            break;
        default:
            break;
        }
    }
    leaveReadGroup();
    if (!extension)
        return;
    contents.append(QByteArray::fromHex(digits));
    if (contents.isEmpty())
        return;
    const QString name = QStringLiteral("picture.") + QLatin1String(extension);
    auto attachment = std::make_shared<TextAttachment>(FileWrapper::regularFile(contents, name));
    attachment->setSize({width.points(), height.points()});
    flushBytes();
    m_isBare = false;
    m_builder.appendAttachment(std::move(attachment), state().characters, state().link);
}

// The older form of lists: {\*\pn \pnlvlblt …} in every paragraph of a list, which nothing else
// holds together.
void RtfBodyReader::readOlderList()
{
    QString format;
    int start = 1;
    RtfGroupTokens group(m_tokens);
    while (const RtfToken* next = group.next()) {
        const RtfToken& token = *next;
        if (token.kind != RtfToken::Kind::Word)
            continue;
        if (token.bytes == "pnlvlblt")
            format = QStringLiteral("{disc}");
        else if (token.bytes == "pnlvlbody" || token.bytes == "pndec")
            format = QStringLiteral("{decimal}.");
        else if (token.bytes == "pnlcltr")
            format = QStringLiteral("{lower-alpha}.");
        else if (token.bytes == "pnucltr")
            format = QStringLiteral("{upper-alpha}.");
        else if (token.bytes == "pnlcrm")
            format = QStringLiteral("{lower-roman}.");
        else if (token.bytes == "pnucrm")
            format = QStringLiteral("{upper-roman}.");
        else if (token.bytes == "pnstart")
            start = token.number;
    }
    if (format.isEmpty())
        return;
    if (!m_olderList || m_olderList->markerFormat != format) {
        auto list = std::make_shared<TextList>();
        list->markerFormat = format;
        list->startingItemNumber = start;
        m_olderList = list;
    }
    // The group belongs to the paragraph round it.
    changedParagraph().ownList = m_olderList;
    const std::shared_ptr<RtfReadParagraph> paragraph = state().paragraph;
    if (m_states.size() > 1 && m_flattenedGroups == 0)
        m_states[m_states.size() - 2].paragraph = paragraph;
}

} // namespace platform
