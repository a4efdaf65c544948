// SPDX-License-Identifier: MIT
#include "platform/propertylist/TypedStreamBytes.h"

#include <bit>

namespace platform {

namespace {

// The other bytes that are no numbers of their own: what follows is longer.
constexpr uchar shortMark = 0x81;
constexpr uchar longMark = 0x82;
constexpr uchar realMark = 0x83;
constexpr uchar firstMark = 0x80;
constexpr uchar lastMark = 0x91;

} // namespace

std::optional<qint64> TypedStreamBytes::readInteger()
{
    if (takeMark(shortMark)) {
        const std::optional<quint64> bits = takeNumber(2);
        return bits ? std::optional<qint64>(qint16(*bits)) : std::nullopt;
    }
    if (takeMark(longMark)) {
        const std::optional<quint64> bits = takeNumber(4);
        return bits ? std::optional<qint64>(qint32(*bits)) : std::nullopt;
    }
    const std::optional<quint64> byte = takeNumber(1);
    if (!byte || (*byte >= firstMark && *byte <= lastMark))
        return std::nullopt;
    return qint8(*byte);
}

std::optional<QByteArrayView> TypedStreamBytes::take(qint64 size)
{
    if (size < 0 || size > m_data.size() - m_position)
        return std::nullopt;
    const QByteArrayView bytes = m_data.sliced(m_position, size);
    m_position += size;
    return bytes;
}

std::optional<quint64> TypedStreamBytes::takeNumber(int size)
{
    const auto bytes = take(size);
    if (!bytes)
        return std::nullopt;
    quint64 number = 0;
    for (int position = 0; position < size; ++position)
        number = number << 8 | uchar((*bytes)[m_isLittleEndian ? size - 1 - position : position]);
    return number;
}

bool TypedStreamBytes::takeMark(uchar mark)
{
    if (m_position >= m_data.size() || uchar(m_data[m_position]) != mark)
        return false;
    ++m_position;
    return true;
}

std::optional<QByteArray> TypedStreamBytes::readBytes()
{
    const std::optional<qint64> size = readInteger();
    const auto bytes = size ? take(*size) : std::nullopt;
    return bytes ? std::optional(bytes->toByteArray()) : std::nullopt;
}

std::optional<double> TypedStreamBytes::readReal(int size)
{
    if (!takeMark(realMark)) {
        const std::optional<qint64> integer = readInteger();
        return integer ? std::optional(double(*integer)) : std::nullopt;
    }
    const std::optional<quint64> bits = takeNumber(size);
    if (!bits)
        return std::nullopt;
    return size == 4 ? double(std::bit_cast<float>(quint32(*bits))) : std::bit_cast<double>(*bits);
}

} // namespace platform
