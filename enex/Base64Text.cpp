// SPDX-License-Identifier: MIT
#include "enex/Base64Text.h"

#include <array>

namespace {

enum class Kind : unsigned char { Foreign, Digit, Padding };

constexpr std::array<Kind, 256> makeKinds()
{
    std::array<Kind, 256> kinds{};
    for (int character = 'A'; character <= 'Z'; ++character)
        kinds[static_cast<std::size_t>(character)] = Kind::Digit;
    for (int character = 'a'; character <= 'z'; ++character)
        kinds[static_cast<std::size_t>(character)] = Kind::Digit;
    for (int character = '0'; character <= '9'; ++character)
        kinds[static_cast<std::size_t>(character)] = Kind::Digit;
    kinds['+'] = kinds['/'] = Kind::Digit;
    kinds['='] = Kind::Padding;
    return kinds;
}

// The library's decoder skips what it does not know but has no opinion of groups and padding.
bool isWholeNumberOfGroups(const QByteArray& text)
{
    static constexpr std::array<Kind, 256> kinds = makeKinds();
    qsizetype digits = 0;
    qsizetype padding = 0;
    for (const char character : text) {
        const Kind kind = kinds[static_cast<unsigned char>(character)];
        if (kind == Kind::Padding) {
            ++padding;
        } else if (kind == Kind::Digit) {
            if (padding > 0)
                return false;
            ++digits;
        }
    }
    // One digit alone stands for no byte.
    const qsizetype last = digits % 4;
    return last == 0 ? padding == 0 : last > 1 && last + padding == 4;
}

} // namespace

std::optional<QByteArray> bytesFromBase64Text(const QByteArray& text)
{
    if (!isWholeNumberOfGroups(text))
        return std::nullopt;
    return QByteArray::fromBase64(text, QByteArray::Base64Encoding | QByteArray::IgnoreBase64DecodingErrors);
}
