// SPDX-License-Identifier: MIT
#include "foundation/StringCleaningBMExtensions.h"

namespace {

QString trimmedOfWhitespace(QStringView text)
{
    while (!text.isEmpty() && platform::isWhitespaceCharacter(text.front().unicode()))
        text = text.sliced(1);
    while (!text.isEmpty() && platform::isWhitespaceCharacter(text.back().unicode()))
        text.chop(1);
    return text.toString();
}

} // namespace

QString stringByRemovingNewlinesAndTabs(const QString& text)
{
    QString line = text;
    line.replace(u'\t', u' ');
    return stringByRemovingNewlines(line);
}

QString stringByRemovingNewlines(const QString& text)
{
    QString line = text;
    line.replace(u'\n', u' ').replace(u'\r', u' ');
    return trimmedOfWhitespace(line);
}

QString stringByTrimmingWhitespace(const QString& text)
{
    return platform::trimmedOfWhitespaceAndNewlines(text).toString();
}

QString stringByRemovingCharactersInSet(const QString& text, const platform::CharacterSet& set)
{
    QString kept;
    kept.reserve(text.size());
    for (qsizetype index = 0; index < text.size();) {
        // The first half of a pair may have been kept as a character of its own.
        const bool completesPair =
            text[index].isLowSurrogate() && !kept.isEmpty() && kept.back().isHighSurrogate();
        QString character = completesPair ? kept.last(1) : QString();
        kept.chop(character.size());
        character += text[index++];
        if (character.back().isHighSurrogate() && index < text.size() && text[index].isLowSurrogate())
            character += text[index++];
        const bool isPair = character.size() == 2;
        if (!set.contains(isPair ? QChar::surrogateToUcs4(character[0], character[1]) : character[0].unicode()))
            kept += character;
    }
    return kept;
}

QString stringByRemovingControlAndIllegalCharacters(const QString& text)
{
    return stringByRemovingCharactersInSet(
        stringByRemovingCharactersInSet(text, platform::CharacterSet::controlCharacters()),
        platform::CharacterSet::illegalCharacters());
}

QString stringByStandardizingNewlines(const QString& text)
{
    QString standard;
    standard.reserve(text.size());
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar unit = text[index];
        const QChar next = index + 1 < text.size() ? text[index + 1] : QChar();
        const bool isPair = (unit == u'\r' && next == u'\n') || (unit == u'\n' && next == u'\r');
        standard += isPair || unit == u'\r' ? QChar(u'\n') : unit;
        index += isPair ? 1 : 0;
    }
    return standard;
}
