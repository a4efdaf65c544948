// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfGroupTokens.h"
#include "platform/rtfd/RtfReadTables.h"

namespace platform {

int RtfReadFont::codePage(const RtfDocumentFacts& facts) const
{
    if (charset == 0 && facts.isMac)
        return facts.codePage;
    const int own = charset < 0 ? 0 : codePageOfCharset(charset);
    return own == 0 ? facts.codePage : own;
}

const Font& rtfFace(RtfReadFont& font)
{
    if (font.face)
        return *font.face;
    if (font.name.isEmpty()) {
        font.face = Font::userFont(12);
    } else if (const auto known = Font::fontNamed(font.name, 12)) {
        font.face = *known;
    } else {
        font.face = Font::fontWithFaceName(font.name, 12);
        font.face->monospaced = font.isFixedPitch;
    }
    return *font.face;
}

void readRtfFontTable(RtfTokenizer& tokens, RtfDecoders& decoders, const RtfDocumentFacts& facts,
                      RtfReadFonts& fonts)
{
    // Fonts stand in groups of their own or follow each other in one; a semicolon ends each. Groups
    // within a font's own tell other names and embedded data.
    int number = 0;
    RtfReadFont font;
    QByteArray name;
    QString unicodeName;
    int substitutes = 1;
    int toSkip = 0;
    const auto flush = [&] {
        const int page = font.codePage(facts);
        // A symbol font's own name is plain text.
        decoders.append(unicodeName, name, page == rtfSymbolCodePage ? rtfWindowsCodePage : page);
        name.clear();
    };
    const auto finish = [&] {
        flush();
        font.name = unicodeName.trimmed();
        fonts.insert(number, font);
        font = RtfReadFont();
        unicodeName.clear();
    };
    const auto finishUnended = [&] {
        if (!name.isEmpty() || !unicodeName.isEmpty())
            finish();
    };
    RtfGroupTokens group(tokens);
    while (const RtfToken* next = group.next()) {
        const RtfToken& token = *next;
        switch (token.kind) {
        case RtfToken::Kind::GroupOpen:
            if (group.depth() > 2)
                group.skipInnermost();
            break;
        case RtfToken::Kind::GroupClose:
            finishUnended();
            break;
        case RtfToken::Kind::Word:
            if (token.bytes == "f") {
                number = token.number;
            } else if (token.bytes == "fcharset") {
                font.charset = token.number;
            } else if (token.bytes == "fmodern") {
                font.isFixedPitch = true;
            } else if (token.bytes == "uc") {
                substitutes = std::clamp(token.number, 0, 255);
            } else if (token.bytes == "u") {
                flush();
                unicodeName += QChar(static_cast<char16_t>(token.number));
                toSkip = substitutes;
            }
            break;
        case RtfToken::Kind::Byte:
            if (toSkip > 0)
                --toSkip;
            else
                name.append(token.symbol);
            break;
        case RtfToken::Kind::Text: {
            QByteArrayView rest = token.bytes;
            const qsizetype skipped = std::min<qsizetype>(toSkip, rest.size());
            rest = rest.sliced(skipped);
            toSkip -= static_cast<int>(skipped);
            for (qsizetype end = rest.indexOf(';'); end >= 0; end = rest.indexOf(';')) {
                name.append(rest.first(end));
                finish();
                rest = rest.sliced(end + 1);
            }
            name.append(rest);
            break;
        }
        case RtfToken::Kind::Symbol:
            if (token.symbol == '\\' || token.symbol == '{' || token.symbol == '}')
                name.append(token.symbol);
            break;
        case RtfToken::Kind::Binary:
        case RtfToken::Kind::End:
            break;
        }
    }
    finishUnended();
}

} // namespace platform
