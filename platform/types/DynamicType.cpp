// SPDX-License-Identifier: MIT
#include "platform/types/DynamicType.h"

#include <QByteArray>

#include <string_view>

namespace platform {

namespace {

const QString prefix = QStringLiteral("dyn.a");
constexpr std::string_view digits = "abcdefghkmnpqrstuvwxyz0123456789";
constexpr int bitsPerDigit = 5;
// What separates tags; within a value they stand behind a backslash.
constexpr std::string_view separators = "?:=,\\";

QByteArray encoded(const QByteArray& text)
{
    QByteArray result;
    unsigned bits = 0;
    int count = 0;
    for (const char byte : text) {
        bits = bits << 8 | static_cast<unsigned char>(byte);
        count += 8;
        while (count >= bitsPerDigit) {
            count -= bitsPerDigit;
            result += digits[bits >> count & 31];
        }
        bits &= (1U << count) - 1;
    }
    if (count > 0)
        result += digits[bits << (bitsPerDigit - count) & 31];
    return result;
}

std::optional<QByteArray> decoded(QStringView text)
{
    QByteArray result;
    unsigned bits = 0;
    int count = 0;
    for (const QChar character : text) {
        const std::size_t digit = digits.find(character.toLatin1());
        if (character.isNull() || digit == std::string_view::npos)
            return std::nullopt;
        bits = bits << bitsPerDigit | static_cast<unsigned>(digit);
        count += bitsPerDigit;
        if (count >= 8) {
            count -= 8;
            result += static_cast<char>(bits >> count);
            bits &= (1U << count) - 1;
        }
    }
    return result;
}

QByteArray escaped(const QString& value)
{
    QByteArray result;
    for (const char byte : value.toUtf8()) {
        if (separators.find(byte) != std::string_view::npos)
            result += '\\';
        result += byte;
    }
    return result;
}

// What follows "1=" or "3=", up to the next separator.
std::optional<DynamicType> tagAt(const QByteArray& text, qsizetype position)
{
    const char key = position < text.size() ? text[position] : '\0';
    if ((key != '1' && key != '3') || text.mid(position + 1, 1) != "=")
        return std::nullopt;
    QByteArray value;
    for (qsizetype index = position + 2; index < text.size(); ++index) {
        if (text[index] == '\\' && index + 1 < text.size())
            ++index;
        else if (separators.find(text[index]) != std::string_view::npos)
            break;
        value += text[index];
    }
    return DynamicType{key == '1' ? DynamicType::Tag::Extension : DynamicType::Tag::MimeType,
                       QString::fromUtf8(value)};
}

} // namespace

QString DynamicType::identifier() const
{
    const QByteArray key = tag == Tag::Extension ? "1=" : "3=";
    return prefix + QString::fromLatin1(encoded(key + escaped(value)));
}

std::optional<DynamicType> DynamicType::fromIdentifier(QStringView identifier)
{
    if (!identifier.startsWith(prefix))
        return std::nullopt;
    const std::optional<QByteArray> text = decoded(identifier.sliced(prefix.size()));
    if (!text)
        return std::nullopt;
    if (!text->startsWith('?'))
        return tagAt(*text, 0);
    const qsizetype separator = text->indexOf(':');
    return separator < 0 ? std::nullopt : tagAt(*text, separator + 1);
}

} // namespace platform
