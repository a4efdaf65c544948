// SPDX-License-Identifier: MIT
#include "enex/Base64Text.h"

#include <array>

namespace {

// What is no digit has a bit that no digit's value has.
constexpr unsigned char foreign = 0x40;
constexpr unsigned char padding = 0x80;
constexpr unsigned digitsOnly = 0x3F;

constexpr std::array<unsigned char, 256> makeValues()
{
    constexpr std::string_view alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::array<unsigned char, 256> values{};
    values.fill(foreign);
    for (std::size_t digit = 0; digit < alphabet.size(); ++digit)
        values[static_cast<unsigned char>(alphabet[digit])] = static_cast<unsigned char>(digit);
    values['='] = padding;
    return values;
}

constexpr std::array<unsigned char, 256> values = makeValues();

// Reads a text from its start, into room for three bytes for each four of its characters, and three
// more.
class Decoding {
public:
    Decoding(QByteArrayView text, char* bytes)
        : m_next(text.begin())
        , m_end(text.end())
        , m_bytes(bytes)
    {
    }

    // False for a text that is no base64.
    bool run()
    {
        while (m_next != m_end) {
            if (m_digits == 0 && m_padding == 0)
                takeWholeGroups();
            if (m_next != m_end && !takeCharacter())
                return false;
        }
        return finish();
    }

    [[nodiscard]] char* end() const { return m_bytes; }

private:
    // Nearly all of a text: four digits in a row.
    void takeWholeGroups()
    {
        while (m_end - m_next >= 4) {
            const unsigned first = valueAt(0);
            const unsigned second = valueAt(1);
            const unsigned third = valueAt(2);
            const unsigned fourth = valueAt(3);
            if ((first | second | third | fourth) > digitsOnly)
                return;
            m_group = first << 18 | second << 12 | third << 6 | fourth;
            putBytes(3);
            m_next += 4;
        }
    }

    bool takeCharacter()
    {
        const unsigned value = valueAt(0);
        ++m_next;
        if (value == padding)
            ++m_padding;
        if (value > digitsOnly)
            return true;
        // No digit follows the padding.
        if (m_padding > 0)
            return false;
        m_group = m_group << 6 | value;
        if (++m_digits == 4) {
            putBytes(3);
            m_digits = 0;
        }
        return true;
    }

    bool finish()
    {
        if (m_digits == 0)
            return m_padding == 0;
        // One digit alone stands for no byte.
        if (m_digits == 1 || m_digits + m_padding != 4)
            return false;
        m_group <<= 6 * (4 - m_digits);
        putBytes(m_digits - 1);
        return true;
    }

    [[nodiscard]] unsigned valueAt(qsizetype offset) const
    {
        return values[static_cast<unsigned char>(m_next[offset])];
    }

    // The first bytes of the group's three.
    void putBytes(qsizetype count)
    {
        for (qsizetype index = 0; index < count; ++index)
            *m_bytes++ = static_cast<char>(m_group >> (16 - 8 * index));
    }

    const char* m_next;
    const char* m_end;
    char* m_bytes;
    quint32 m_group = 0;
    qsizetype m_digits = 0; // in the group
    qsizetype m_padding = 0;
};

} // namespace

std::optional<QByteArray> bytesFromBase64Text(const QByteArray& text)
{
    QByteArray bytes(text.size() / 4 * 3 + 3, Qt::Uninitialized);
    Decoding decoding(text, bytes.data());
    if (!decoding.run())
        return std::nullopt;
    bytes.truncate(decoding.end() - bytes.constData());
    return bytes;
}
