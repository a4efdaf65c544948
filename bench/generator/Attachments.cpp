// SPDX-License-Identifier: MIT
#include "bench/generator/Attachments.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace bench {

namespace {

constexpr int storedBlockLimit = 65535;

std::array<std::uint32_t, 256> checksumTable()
{
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1) ? 0xEDB88320U ^ (value >> 1) : value >> 1;
        table[i] = value;
    }
    return table;
}

// The CRC-32 of PNG chunks.
std::uint32_t checksum(const QByteArray& bytes)
{
    static const std::array<std::uint32_t, 256> table = checksumTable();
    std::uint32_t value = 0xFFFFFFFFU;
    for (const char byte : bytes)
        value = table[(value ^ static_cast<unsigned char>(byte)) & 0xFF] ^ (value >> 8);
    return ~value;
}

std::uint32_t adler(const QByteArray& bytes)
{
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<unsigned char>(byte)) % 65521;
        high = (high + low) % 65521;
    }
    return (high << 16) | low;
}

void appendBigEndian(QByteArray& out, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.append(static_cast<char>((value >> shift) & 0xFF));
}

void appendChunk(QByteArray& out, const char* kind, const QByteArray& data)
{
    appendBigEndian(out, static_cast<std::uint32_t>(data.size()));
    const QByteArray checked = QByteArray(kind) + data;
    out += checked;
    appendBigEndian(out, checksum(checked));
}

// A zlib stream whose blocks are all stored.
QByteArray stored(const QByteArray& raw)
{
    QByteArray out("\x78\x01", 2);
    for (qsizetype at = 0; at < raw.size(); at += storedBlockLimit) {
        const qsizetype length = std::min<qsizetype>(storedBlockLimit, raw.size() - at);
        out.append(at + length == raw.size() ? '\1' : '\0');
        for (const qsizetype field : {length, ~length}) {
            out.append(static_cast<char>(field & 0xFF));
            out.append(static_cast<char>((field >> 8) & 0xFF));
        }
        out.append(raw.constData() + at, length);
    }
    appendBigEndian(out, adler(raw));
    return out;
}

void appendNoise(QByteArray& out, Random& random, qsizetype bytes)
{
    const qsizetype start = out.size();
    out.resize(start + bytes);
    for (qsizetype at = 0; at < bytes; at += 8) {
        const std::uint64_t noise = random.next();
        std::memcpy(out.data() + start + at, &noise, std::min<qsizetype>(8, bytes - at));
    }
}

} // namespace

QByteArray picture(Random& random, int width, int height)
{
    QByteArray rows;
    rows.reserve(qsizetype(width + 1) * height);
    for (int row = 0; row < height; ++row) {
        rows.append('\0');
        appendNoise(rows, random, width);
    }
    QByteArray header;
    appendBigEndian(header, static_cast<std::uint32_t>(width));
    appendBigEndian(header, static_cast<std::uint32_t>(height));
    header.append("\x08\x00\x00\x00\x00", 5);
    QByteArray out("\x89PNG\r\n\x1a\n");
    appendChunk(out, "IHDR", header);
    appendChunk(out, "IDAT", stored(rows));
    appendChunk(out, "IEND", {});
    return out;
}

QByteArray document(Random& random, int bytes)
{
    QByteArray out("%PDF-1.4\n");
    appendNoise(out, random, std::max<qsizetype>(0, bytes - out.size()));
    return out;
}

} // namespace bench
