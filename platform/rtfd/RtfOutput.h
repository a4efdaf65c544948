// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstring>
#include <utility>

namespace platform {

// The bytes that a writer gathers. Rich text is made of very many very short pieces, and the general
// byte array spends more on each than the piece is long.
class RtfOutput {
public:
    RtfOutput& append(QByteArrayView bytes)
    {
        std::memcpy(extend(bytes.size()), bytes.data(), static_cast<std::size_t>(bytes.size()));
        return *this;
    }
    RtfOutput& append(char byte)
    {
        *extend(1) = byte;
        return *this;
    }
    RtfOutput& append(const char* bytes, qsizetype count)
    {
        return append(QByteArrayView(bytes, count));
    }

    // Room for so many bytes more, which the caller fills.
    [[nodiscard]] char* extend(qsizetype count)
    {
        if (m_bytes.size() - m_size < count)
            grow(count);
        return m_bytes.data() + std::exchange(m_size, m_size + count);
    }

    void reserve(qsizetype size);
    void clear() { m_size = 0; }
    void chop(qsizetype count) { m_size -= count; }
    [[nodiscard]] qsizetype size() const { return m_size; }
    [[nodiscard]] bool isEmpty() const { return m_size == 0; }
    [[nodiscard]] QByteArrayView view() const { return {m_bytes.constData(), m_size}; }

private:
    void grow(qsizetype count);

    QByteArray m_bytes; // as long as there is room
    qsizetype m_size = 0;
};

} // namespace platform
