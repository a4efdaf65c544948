// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfOutput.h"

namespace platform {

namespace {

constexpr qsizetype leastRoom = 256;

} // namespace

void RtfOutput::reserve(qsizetype size)
{
    if (size > m_bytes.size())
        grow(size - m_size);
}

void RtfOutput::grow(qsizetype count)
{
    const qsizetype size = std::max({leastRoom, m_size + count, m_bytes.size() * 2});
    QByteArray larger(size, Qt::Uninitialized);
    std::memcpy(larger.data(), m_bytes.constData(), static_cast<std::size_t>(m_size));
    m_bytes = std::move(larger);
}

} // namespace platform
