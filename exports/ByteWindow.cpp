// SPDX-License-Identifier: MIT
#include "exports/ByteWindow.h"

#include <cstring>

ByteWindow::ByteWindow(platform::InputStream& stream)
    : m_stream(stream)
    , m_buffer(static_cast<std::size_t>(capacity))
    , m_begin(m_buffer.data())
    , m_end(m_buffer.data())
{
}

bool ByteWindow::fill(qsizetype count)
{
    const qsizetype kept = size();
    std::memmove(m_buffer.data(), m_begin, static_cast<std::size_t>(kept));
    m_begin = m_buffer.data();
    m_end = m_begin + kept;
    while (size() < count && !m_atEnd) {
        const qint64 length = m_stream.read(m_buffer.data() + size(), capacity - size(), &m_error);
        m_atEnd = length <= 0;
        m_end += std::max<qint64>(length, 0);
        m_bytesRead += std::max<qint64>(length, 0);
    }
    return size() >= count;
}
