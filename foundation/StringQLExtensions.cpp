// SPDX-License-Identifier: MIT
#include "foundation/StringQLExtensions.h"

#include "foundation/StringBMExtensions.h"
#include "foundation/StringPathsBMExtensions.h"
#include "platform/core/CharacterSet.h"
#include "platform/core/PathUtilities.h"
#include "platform/defaults/UserDefaults.h"

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype intendedNameLength = 128;
const QString beginMarker = QStringLiteral("###begin_tags###");
const QString endMarker = QStringLiteral("###end_tags###");

bool endsWord(QChar unit)
{
    return unit == u'.' || platform::isWhitespaceOrNewlineCharacter(unit.unicode());
}

QStringView trimmedOfWordEnds(QStringView text)
{
    while (!text.isEmpty() && endsWord(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && endsWord(text.back()))
        text.chop(1);
    return text;
}

// The place of the first line end or control character that lies whole before the limit.
qsizetype firstLineEnd(QStringView text, qsizetype limit)
{
    const auto& controls = platform::CharacterSet::controlCharacters();
    for (qsizetype index = 0; index < limit; ++index) {
        const bool isPair = text[index].isHighSurrogate() && index + 1 < limit && text[index + 1].isLowSurrogate();
        const char32_t character =
            isPair ? QChar::surrogateToUcs4(text[index], text[index + 1]) : text[index].unicode();
        if (controls.contains(character) || (!isPair && platform::isNewlineCharacter(text[index].unicode())))
            return index;
        index += isPair ? 1 : 0;
    }
    return -1;
}

// The end of the word that reaches or crosses the limit, or of the last one before a period.
qsizetype endOfWords(QStringView text, qsizetype limit)
{
    qsizetype end = 0;
    while (end < limit) {
        qsizetype start = end;
        while (start < text.size() && platform::isWhitespaceOrNewlineCharacter(text[start].unicode()))
            ++start;
        const qsizetype next = std::find_if(text.begin() + start, text.end(), endsWord) - text.begin();
        if (next == start)
            break;
        end = next;
    }
    return end;
}

QString tagFromWord(QStringView word) { return word.toString().replace(u'_', u' ').replace(u'.', u' '); }

// The length of the word's first character when that is one of the prefixes; 0 when it is none, or
// when the word is that character alone.
qsizetype prefixLength(QStringView word, const platform::CharacterSet& prefixes)
{
    if (word.size() < 2)
        return 0;
    const bool isPair = word[0].isHighSurrogate() && word[1].isLowSurrogate();
    const char32_t first = isPair ? QChar::surrogateToUcs4(word[0], word[1]) : word[0].unicode();
    return prefixes.contains(first) ? (isPair ? 2 : 1) : 0;
}

// With prefixes only the words that begin with one, without it.
QStringList tagsFromWords(const QString& comment, const platform::CharacterSet* prefixes)
{
    QStringList tags;
    for (const QStringView word : QStringView(comment).split(u' ')) {
        const qsizetype skipped = prefixes ? prefixLength(word, *prefixes) : 0;
        if (prefixes && skipped == 0)
            continue;
        const QString tag = tagFromWord(word.sliced(skipped));
        if (!tag.isEmpty())
            tags += tag;
    }
    return tags;
}

QStringList tagsFromBlock(QStringView block)
{
    QStringList tags;
    for (QStringView piece : block.split(u';')) {
        while (piece.startsWith(u'@'))
            piece = piece.sliced(1);
        while (piece.endsWith(u'@'))
            piece.chop(1);
        if (!piece.isEmpty())
            tags += piece.toString();
    }
    return tags;
}

bool tagsArePrefixed() { return platform::UserDefaults::standard().boolForKey(QStringLiteral("QLPrefixExportedTags")); }

QString tagPrefixes()
{
    const QString prefixes = QStringLiteral("@&");
    const QString more =
        platform::UserDefaults::standard().stringForKey(QStringLiteral("QLImportedTagsPrefix")).value_or(QString());
    return prefixes.contains(more) ? prefixes : prefixes + more;
}

} // namespace

std::optional<QString> generateFilename(const QString& text)
{
    QString words = trimmedOfWordEnds(text).toString();
    words.remove(QChar::ObjectReplacementCharacter);
    const qsizetype limit = std::min(words.size(), intendedNameLength);
    const qsizetype lineEnd = firstLineEnd(words, limit);
    const qsizetype end = lineEnd >= 0 ? lineEnd : endOfWords(words, limit);
    const QStringView name = platform::trimmedOfWhitespaceAndNewlines(QStringView(words).first(end));
    if (name.isEmpty())
        return std::nullopt;
    return fileSystemRepresentationString(stringSanitizedForFileName(name.toString()));
}

bool isEncryptedFile(const QString& name)
{
    static constexpr std::array extensions{"qlencryptnote",  "qlencryptdocument", "qlencryptimage",  "qlencryptmovie",
                                           "qlencryptsound", "qlencryptbookmark", "qlencryptwebpage"};
    const QString extension = platform::pathExtension(name);
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](const char* encrypted) { return extension == QLatin1String(encrypted); });
}

std::optional<QStringList> tagNamesFromSpotlightComments(const QString& comment)
{
    const qsizetype begin = comment.indexOf(beginMarker);
    if (begin >= 0) {
        const qsizetype start = begin + beginMarker.size();
        const qsizetype end = comment.indexOf(endMarker, start);
        if (end < 0)
            return std::nullopt;
        return tagsFromBlock(QStringView(comment).sliced(start, end - start));
    }
    if (!tagsArePrefixed())
        return tagsFromWords(comment, nullptr);
    const auto prefixes = platform::CharacterSet::charactersInString(tagPrefixes());
    return tagsFromWords(comment, &prefixes);
}

std::optional<QString> commentsFromSpotlightComments(const QString& comment)
{
    if (!tagsArePrefixed())
        return std::nullopt;
    const qsizetype begin = comment.indexOf(beginMarker);
    if (begin > 0) {
        const QStringView text = platform::trimmedOfWhitespaceAndNewlines(QStringView(comment).first(begin));
        return text.isEmpty() ? std::nullopt : std::optional(text.toString());
    }
    const auto tags = tagNamesFromSpotlightComments(comment);
    return tags && !tags->isEmpty() ? std::nullopt : std::optional(comment);
}
