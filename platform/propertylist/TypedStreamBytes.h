// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace platform {

// The numbers and marks that a legacy archive is made of, one after another. Every operation gives
// none where the data ends too early or holds something else.
class TypedStreamBytes {
public:
    // Something follows that was not there before; nothing stands here; an object ends.
    static constexpr uchar newMark = 0x84;
    static constexpr uchar noneMark = 0x85;
    static constexpr uchar endMark = 0x86;

    explicit TypedStreamBytes(QByteArrayView data)
        : m_data(data)
    {
    }

    void setLittleEndian(bool isLittleEndian) { m_isLittleEndian = isLittleEndian; }
    [[nodiscard]] bool isAtEnd() const { return m_position == m_data.size(); }

    // Skips the mark if it is next.
    bool takeMark(uchar mark);
    std::optional<QByteArrayView> take(qint64 size);
    std::optional<quint64> takeNumber(int size);

    // One byte, or a mark and two or four.
    std::optional<qint64> readInteger();
    // A length and as many bytes.
    std::optional<QByteArray> readBytes();
    // A mark and 4 or 8 bytes; a whole number is written as an integer.
    std::optional<double> readReal(int size);

private:
    QByteArrayView m_data;
    qsizetype m_position = 0;
    bool m_isLittleEndian = true;
};

} // namespace platform
