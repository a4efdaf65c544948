// SPDX-License-Identifier: MIT
#include "enex/Base64Text.h"

#include <random>

namespace {

constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// One character after another, as the format is told.
std::optional<QByteArray> decodedSlowly(const QByteArray& text)
{
    QByteArray digits;
    qsizetype padding = 0;
    for (const char character : text) {
        const char* const place = character == '\0' ? nullptr : std::strchr(alphabet, character);
        if (character == '=')
            ++padding;
        else if (place && padding > 0)
            return std::nullopt;
        else if (place)
            digits += static_cast<char>(place - alphabet);
    }
    const qsizetype last = digits.size() % 4;
    if (last == 1 || (last == 0 ? padding != 0 : last + padding != 4))
        return std::nullopt;
    QByteArray bytes;
    quint32 bits = 0;
    int count = 0;
    for (const char digit : digits) {
        bits = bits << 6 | static_cast<quint32>(digit);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count);
        }
    }
    return bytes;
}

class Base64TextTest : public testing::Test {
protected:
    qsizetype number(int below) { return static_cast<qsizetype>(m_random() % static_cast<unsigned>(below)); }

    QByteArray bytes(qsizetype count)
    {
        QByteArray result(count, Qt::Uninitialized);
        for (char& byte : result)
            byte = static_cast<char>(m_random());
        return result;
    }

    std::mt19937 m_random{17};
};

TEST_F(Base64TextTest, EveryLengthComesBack)
{
    for (qsizetype length = 0; length < 300; ++length) {
        const QByteArray original = bytes(length);
        EXPECT_EQ(bytesFromBase64Text(original.toBase64()), original) << length;
    }
}

TEST_F(Base64TextTest, LinesOfEveryLengthComeBack)
{
    const QByteArray original = bytes(1000);
    const QByteArray text = original.toBase64();
    for (const char* lineEnd : {"\n", "\r\n", "\r\n    "}) {
        for (qsizetype length = 1; length < 100; ++length) {
            QByteArray lines;
            for (qsizetype start = 0; start < text.size(); start += length)
                lines += text.mid(start, length) + lineEnd;
            EXPECT_EQ(bytesFromBase64Text(lines), original) << length;
        }
    }
}

TEST_F(Base64TextTest, ForeignCharactersAreSkippedWhereverTheyStand)
{
    for (int round = 0; round < 2000; ++round) {
        const QByteArray original = bytes(number(40));
        QByteArray text = original.toBase64();
        for (qsizetype count = number(10); count > 0; --count) {
            char foreign = static_cast<char>(m_random());
            if (foreign == '\0' || !std::strchr(alphabet, foreign))
                text.insert(number(static_cast<int>(text.size()) + 1), foreign == '=' ? '-' : foreign);
        }
        EXPECT_EQ(bytesFromBase64Text(text), original) << text.constData();
    }
}

TEST_F(Base64TextTest, AnyTextIsDecodedOrRefusedAsOneCharacterAfterAnotherSays)
{
    int refused = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray text;
        for (qsizetype count = number(12); count > 0; --count)
            text += "AZaz09+/==\n-"[number(12)];
        const auto expected = decodedSlowly(text);
        refused += expected ? 0 : 1;
        EXPECT_EQ(bytesFromBase64Text(text), expected) << text.constData();
    }
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 19000);
}

TEST_F(Base64TextTest, EveryByteIsInTheAlphabetOrForeign)
{
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray text = QByteArray("AAA") + static_cast<char>(byte) + QByteArray("AAAA");
        EXPECT_EQ(bytesFromBase64Text(text), decodedSlowly(text)) << byte;
    }
}

} // namespace
