// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfGroupTokens.h"
#include "platform/rtfd/RtfReadTables.h"

namespace platform {

namespace {

constexpr std::size_t maximumLevels = 50;

// The kind in braces for a number format of \levelnfc.
QString kindOfNumber(int number)
{
    switch (number) {
    case 1:
        return QStringLiteral("{upper-roman}");
    case 2:
        return QStringLiteral("{lower-roman}");
    case 3:
        return QStringLiteral("{upper-alpha}");
    case 4:
        return QStringLiteral("{lower-alpha}");
    default:
        return QStringLiteral("{decimal}");
    }
}

QString kindOfBullet(QStringView bullet)
{
    const char16_t character = bullet.isEmpty() ? u'\0' : bullet.front().unicode();
    switch (character) {
    case u'o':
    case u'\u25E6':
    case u'\u25CB':
        return QStringLiteral("{circle}");
    case u'\u25AA':
    case u'\u25A0':
    case u'\uF0A7': // a symbol font's square
        return QStringLiteral("{square}");
    case u'-':
    case u'\u2013':
    case u'\u2043':
        return QStringLiteral("{hyphen}");
    case u'\u2713':
    case u'\uF0FC': // a symbol font's check mark
        return QStringLiteral("{check}");
    default:
        return QStringLiteral("{disc}");
    }
}

// One \listlevel group while it is read.
struct Level {
    int numberKind = 0;
    int start = 1;
    int templateId = 0;
    bool hasMarker = false;
    QString marker; // Cocoa's own form of the format
    QString text; // the counted text: its length, then characters, with numbers below 9 for levels

    [[nodiscard]] QString format(int level) const
    {
        if (hasMarker)
            return marker == u"{none}" ? QString() : marker;
        const qsizetype count = text.isEmpty() ? 0 : text.front().unicode();
        const QStringView counted = QStringView(text).mid(1, count);
        constexpr int noNumber = 255;
        constexpr int bulletKind = 23;
        if (numberKind == noNumber && counted.isEmpty())
            return {};
        if (numberKind == bulletKind || numberKind == noNumber)
            return kindOfBullet(counted);
        // Only this level's own number can be told; those of outer levels are left out.
        const qsizetype place = counted.indexOf(QChar(static_cast<char16_t>(level)));
        if (place < 0)
            return kindOfNumber(numberKind) + u'.';
        QString format;
        for (const QChar character : counted.first(place)) {
            if (character >= u' ')
                format += character;
        }
        if (format == u"." || format.contains(u".."))
            format.clear();
        format += kindOfNumber(numberKind);
        format += counted.sliced(place + 1);
        return format;
    }
};

// The text of a level's own group, in which \'xx are counts and places, not characters of a code
// page.
QString readLevelText(RtfTokenizer& tokens, Level& level)
{
    QString text;
    int substitutes = 1;
    int toSkip = 0;
    RtfGroupTokens group(tokens);
    while (const RtfToken* next = group.next()) {
        const RtfToken& token = *next;
        switch (token.kind) {
        case RtfToken::Kind::Byte:
            if (toSkip > 0)
                --toSkip;
            else
                text += QChar(static_cast<unsigned char>(token.symbol) == 0xB7
                                  ? u'\u2022'
                                  : char16_t(static_cast<unsigned char>(token.symbol)));
            break;
        case RtfToken::Kind::Text: {
            const qsizetype skipped = std::min<qsizetype>(toSkip, token.bytes.size());
            toSkip -= static_cast<int>(skipped);
            text += QString::fromLatin1(token.bytes.sliced(skipped));
            break;
        }
        case RtfToken::Kind::Symbol:
            if (token.symbol == '{' || token.symbol == '}' || token.symbol == '\\')
                text += QLatin1Char(token.symbol);
            break;
        case RtfToken::Kind::Word:
            if (token.bytes == "leveltemplateid")
                level.templateId = token.number;
            else if (token.bytes == "uc")
                substitutes = std::clamp(token.number, 0, 255);
            else if (token.bytes == "u") {
                text += QChar(static_cast<char16_t>(token.number));
                toSkip = substitutes;
            }
            break;
        default:
            break;
        }
    }
    // The semicolon ends the text.
    if (text.endsWith(u';'))
        text.chop(1);
    return text;
}

Level readLevel(RtfTokenizer& tokens, RtfDecoders& decoders, const RtfDocumentFacts& facts)
{
    Level level;
    RtfGroupTokens group(tokens);
    while (const RtfToken* token = group.next()) {
        if (token->isWord("levelnfc") || token->isWord("levelnfcn")) {
            level.numberKind = token->number;
        } else if (token->isWord("levelstartat")) {
            level.start = token->number;
        } else if (token->isWord("leveltext")) {
            level.text = readLevelText(tokens, level);
            group.leaveInnermost();
        } else if (token->isWord("levelmarker")) {
            level.marker = readRtfGroupText(tokens, decoders, facts.codePage);
            level.hasMarker = true;
            group.leaveInnermost();
        }
    }
    return level;
}

} // namespace

void RtfReadLists::readTable(RtfTokenizer& tokens, RtfDecoders& decoders,
                             const RtfDocumentFacts& facts)
{
    RtfGroupTokens group(tokens);
    while (const RtfToken* token = group.next()) {
        if (token->isWord("list")) {
            readList(tokens, decoders, facts);
            group.leaveInnermost();
        }
    }
}

void RtfReadLists::readList(RtfTokenizer& tokens, RtfDecoders& decoders,
                            const RtfDocumentFacts& facts)
{
    Levels levels;
    int id = 0;
    RtfGroupTokens group(tokens);
    while (const RtfToken* token = group.next()) {
        if (token->isWord("listid")) {
            id = token->number;
        } else if (token->isWord("listlevel")) {
            const Level level = readLevel(tokens, decoders, facts);
            group.leaveInnermost();
            if (levels.size() >= maximumLevels)
                continue;
            // In Cocoa's files a template number stands for one list; elsewhere for a kind of them.
            const bool isKnown = facts.isCocoa && level.templateId != 0 &&
                                 m_listByTemplate.contains(level.templateId);
            if (isKnown) {
                levels.push_back(m_listByTemplate.value(level.templateId));
                continue;
            }
            auto list = std::make_shared<TextList>();
            list->markerFormat = level.format(static_cast<int>(levels.size()));
            list->startingItemNumber = level.start;
            if (level.templateId != 0)
                m_listByTemplate.insert(level.templateId, list);
            levels.push_back(list);
        }
    }
    m_levelsById.insert(id, levels);
}

void RtfReadLists::readOverrides(RtfTokenizer& tokens)
{
    int id = 0;
    RtfGroupTokens group(tokens);
    while (const RtfToken* token = group.next()) {
        if (token->isWord("listid"))
            id = token->number;
        else if (token->isWord("ls"))
            m_idByReference.insert(token->number, id);
    }
}

std::vector<std::shared_ptr<const TextList>> RtfReadLists::chain(int reference, int level) const
{
    if (reference <= 0 || level < 0)
        return {};
    const auto id = m_idByReference.constFind(reference);
    if (id == m_idByReference.cend())
        return {};
    const auto levels = m_levelsById.constFind(*id);
    if (levels == m_levelsById.cend())
        return {};
    const auto count = std::min<std::size_t>(static_cast<std::size_t>(level) + 1, levels->size());
    return {levels->begin(), levels->begin() + static_cast<std::ptrdiff_t>(count)};
}

} // namespace platform
