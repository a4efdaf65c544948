// SPDX-License-Identifier: MIT
#include "platform/core/CharacterSet.h"

#include <unicode/uset.h>

namespace platform {

CharacterSet CharacterSet::fromPattern(QStringView pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<USet> set(uset_openPattern(pattern.utf16(), int32_t(pattern.size()), &status), uset_close);
    Q_ASSERT(U_SUCCESS(status));
    uset_freeze(set.get());
    return CharacterSet(std::move(set));
}

const CharacterSet& CharacterSet::controlCharacters()
{
    static const CharacterSet set = fromPattern(u"[[:Cc:][:Cf:]]");
    return set;
}

const CharacterSet& CharacterSet::illegalCharacters()
{
    static const CharacterSet set = fromPattern(u"[:Cn:]");
    return set;
}

CharacterSet CharacterSet::charactersInString(const QString& characters)
{
    std::shared_ptr<USet> set(uset_openEmpty(), uset_close);
    for (qsizetype index = 0; index < characters.size(); ++index) {
        const QChar unit = characters[index];
        const bool isPair = unit.isHighSurrogate() && index + 1 < characters.size()
                            && characters[index + 1].isLowSurrogate();
        uset_add(set.get(), isPair ? UChar32(QChar::surrogateToUcs4(unit, characters[++index])) : unit.unicode());
    }
    uset_freeze(set.get());
    return CharacterSet(std::move(set));
}

bool CharacterSet::contains(char32_t character) const { return uset_contains(m_set.get(), UChar32(character)); }

bool isWhitespaceCharacter(char16_t unit)
{
    return unit == u'\t' || unit == u' ' || unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200B)
           || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

bool isNewlineCharacter(char16_t unit)
{
    return (unit >= 0x0A && unit <= 0x0D) || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

bool isWhitespaceOrNewlineCharacter(char16_t unit)
{
    return isWhitespaceCharacter(unit) || isNewlineCharacter(unit);
}

QStringView trimmedOfWhitespaceAndNewlines(QStringView text)
{
    while (!text.isEmpty() && isWhitespaceOrNewlineCharacter(text.front().unicode()))
        text = text.sliced(1);
    while (!text.isEmpty() && isWhitespaceOrNewlineCharacter(text.back().unicode()))
        text.chop(1);
    return text;
}

} // namespace platform
