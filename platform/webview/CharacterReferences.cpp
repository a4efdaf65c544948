// SPDX-License-Identifier: MIT
#include "platform/webview/CharacterReferences.h"

#include <libxml/HTMLparser.h>

namespace platform {
namespace {

bool isAlphanumeric(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

// A character and how many bytes of the markup stand for it; none where it is no reference.
struct Reference {
    char32_t character = 0;
    qsizetype length = 0;
};

Reference numericReference(QByteArrayView markup)
{
    const bool hexadecimal = markup.size() > 2 && (markup[2] == 'x' || markup[2] == 'X');
    const qsizetype start = hexadecimal ? 3 : 2;
    char32_t value = 0;
    qsizetype index = start;
    for (; index < markup.size(); ++index) {
        const char byte = markup[index];
        int digit = -1;
        if (byte >= '0' && byte <= '9')
            digit = byte - '0';
        else if (hexadecimal && (byte | 0x20) >= 'a' && (byte | 0x20) <= 'f')
            digit = (byte | 0x20) - 'a' + 10;
        if (digit < 0)
            break;
        value = qMin<char32_t>(value * (hexadecimal ? 16 : 10) + char32_t(digit), 0x110000);
    }
    if (index == start)
        return {};
    if (value == 0 || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        value = 0xFFFD;
    if (index < markup.size() && markup[index] == ';')
        ++index;
    return {value, index};
}

Reference namedReference(QByteArrayView markup)
{
    // The longest of the HTML 4 names has eight letters.
    qsizetype end = 1;
    while (end < markup.size() && end < 10 && isAlphanumeric(markup[end]))
        ++end;
    const QByteArray name = markup.sliced(1, end - 1).toByteArray();
    const bool closed = end < markup.size() && markup[end] == ';';
    if (!closed) {
        const bool goesOn = end < markup.size() && (markup[end] == '=' || isAlphanumeric(markup[end]));
        static const QByteArrayList unclosed = {"amp", "lt", "gt", "quot", "nbsp", "copy", "reg"};
        if (goesOn || !unclosed.contains(name))
            return {};
    }
    if (name == "apos")
        return {U'\'', end + 1};
    const htmlEntityDesc* entity = htmlEntityLookup(reinterpret_cast<const xmlChar*>(name.constData()));
    return entity ? Reference{entity->value, end + (closed ? 1 : 0)} : Reference{};
}

} // namespace

QString resolvedReferences(QByteArrayView markup)
{
    QString result;
    while (true) {
        const qsizetype ampersand = markup.indexOf('&');
        if (ampersand < 0)
            return result + QString::fromUtf8(markup);
        result += QString::fromUtf8(markup.first(ampersand));
        markup = markup.sliced(ampersand);
        const bool numeric = markup.size() > 1 && markup[1] == '#';
        const Reference reference = numeric ? numericReference(markup) : namedReference(markup);
        if (reference.length == 0)
            result += QLatin1Char('&');
        else
            result += QChar::fromUcs4(reference.character);
        markup = markup.sliced(qMax(reference.length, qsizetype(1)));
    }
}

} // namespace platform
