// SPDX-License-Identifier: MIT
#include "HandmadePropertyLists.h"

namespace test {

QByteArray bigEndian(quint64 number, int size)
{
    QByteArray bytes;
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
        bytes += char(number >> shift & 0xFF);
    return bytes;
}

QByteArray binaryPropertyList(const std::vector<QByteArray>& objects)
{
    QByteArray bodies;
    std::vector<quint64> offsets;
    for (const QByteArray& object : objects) {
        offsets.push_back(quint64(bodies.size()));
        bodies += object;
    }
    return binaryPropertyList(bodies, offsets);
}

QByteArray binaryPropertyList(const QByteArray& bodies, const std::vector<quint64>& offsets,
                              int referenceSize)
{
    constexpr quint64 headerSize = 8;
    QByteArray bytes = "bplist00" + bodies;
    const quint64 table = quint64(bytes.size());
    for (const quint64 offset : offsets)
        bytes += bigEndian(offset + headerSize, 4);
    bytes += QByteArray(6, '\0') + char(4) + char(referenceSize);
    bytes += bigEndian(offsets.size(), 8) + bigEndian(0, 8) + bigEndian(table, 8);
    return bytes;
}

} // namespace test
