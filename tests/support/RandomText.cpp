// SPDX-License-Identifier: MIT
#include "support/RandomText.h"

namespace test {

void RandomText::appendCharacter(QString& text)
{
    static const char16_t structural[] = u" \t\n\r\u0085\u2028\u00a0\u200b./:~#%@&_-;\"'\\<>[]\ufffc";
    static const char16_t letters[] = u"aAbBeEiIsS\u00df\u0130\u0131\u00e9\u212a\u03c2\u1e9e\uac00\u1112\uf900";
    static const char16_t oddities[] = u"\u0301\u0308\u0328\u200d\u00ad\ufeff\ufffe\uffff\u0000\u0007\u0378\ue000";
    const auto oneOf = [&](const char16_t* set, size_t count) { text += QChar(set[number(0, int(count) - 1)]); };
    switch (number(0, 7)) {
    case 0:
    case 1:
        oneOf(structural, std::size(structural) - 1);
        break;
    case 2:
    case 3:
        oneOf(letters, std::size(letters) - 1);
        break;
    case 4:
        oneOf(oddities, std::size(oddities) - 1);
        break;
    case 5:
        text += QString::fromUcs4(U"\U0001F600\U00010400\U00010428\U000E0001\U0001D173\U0010FFFF" + number(0, 5), 1);
        break;
    case 6:
        text += QChar(number(0xD800, 0xDFFF));
        break;
    default:
        text += QChar(number(0, 0xFFFF));
        break;
    }
}

QString RandomText::next(int maximumLength)
{
    const int length = number(0, maximumLength);
    QString text;
    while (text.size() < length)
        appendCharacter(text);
    text.truncate(length);
    return text;
}

} // namespace test
