// SPDX-License-Identifier: MIT
#include "platform/files/AliasFile.h"

#include <QStringList>
#include <QUtf8StringView>
#include <QtEndian>

namespace platform {

namespace {

constexpr quint32 tableMark = 0xFFFFFFFE;
constexpr quint32 pathKey = 0x1004;
constexpr quint32 textType = 0x0101;
constexpr quint32 arrayType = 0x0601;
constexpr int maximumTables = 64;
constexpr quint32 maximumEntries = 4096;

// Bookmark data after its header. Offsets come from the file, so every look is checked.
class Bookmark {
public:
    explicit Bookmark(QByteArrayView data)
        : m_data(data)
    {
    }

    [[nodiscard]] std::optional<quint32> number(quint64 offset) const
    {
        if (quint64(m_data.size()) < 4 || offset > quint64(m_data.size()) - 4)
            return std::nullopt;
        return qFromLittleEndian<quint32>(m_data.data() + offset);
    }

    [[nodiscard]] std::optional<QByteArrayView> value(quint64 offset, quint32 type) const
    {
        const auto size = number(offset);
        if (!size || number(offset + 4) != type || *size > quint64(m_data.size()) - offset - 8)
            return std::nullopt;
        return m_data.sliced(qsizetype(offset) + 8, *size);
    }

    [[nodiscard]] std::optional<quint32> offsetForKey(quint32 key) const
    {
        auto table = number(0);
        for (int count = 0; table && *table != 0 && count < maximumTables; ++count) {
            if (number(quint64(*table) + 4) != tableMark)
                return std::nullopt;
            const quint32 entries = number(quint64(*table) + 16).value_or(0);
            for (quint64 entry = 0; entry < std::min(entries, maximumEntries); ++entry) {
                const quint64 place = quint64(*table) + 20 + entry * 12;
                if (number(place) == key)
                    return number(place + 4);
            }
            table = number(quint64(*table) + 12);
        }
        return std::nullopt;
    }

private:
    QByteArrayView m_data;
};

std::optional<Bookmark> bookmarkAfterHeader(QByteArrayView data)
{
    const Bookmark whole(data);
    if (!data.startsWith("book"))
        return std::nullopt;
    const bool isAliasFile =
        data.size() > 16 && data.sliced(4, 8) == QByteArrayView("\0\0\0\0mark", 8);
    const auto headerSize = whole.number(isAliasFile ? 16 : 12);
    if (!headerSize || *headerSize < 16 || *headerSize > quint64(data.size()))
        return std::nullopt;
    return Bookmark(data.sliced(*headerSize));
}

bool isPathComponent(QByteArrayView bytes)
{
    return !bytes.isEmpty() && QUtf8StringView(bytes).isValidUtf8() && bytes != "." &&
           bytes != ".." && !bytes.contains('/') && !bytes.contains('\0');
}

} // namespace

std::optional<QString> pathInBookmarkData(QByteArrayView data)
{
    const auto bookmark = bookmarkAfterHeader(data);
    const auto offset = bookmark ? bookmark->offsetForKey(pathKey) : std::nullopt;
    const auto offsets = offset ? bookmark->value(*offset, arrayType) : std::nullopt;
    if (!offsets || offsets->size() % 4 != 0 || offsets->size() / 4 > qsizetype(maximumEntries))
        return std::nullopt;
    QString path;
    for (qsizetype at = 0; at < offsets->size(); at += 4) {
        const auto component =
            bookmark->value(qFromLittleEndian<quint32>(offsets->data() + at), textType);
        if (!component || !isPathComponent(*component))
            return std::nullopt;
        path += u'/' + QString::fromUtf8(*component);
    }
    return path.isEmpty() ? QStringLiteral("/") : path;
}

} // namespace platform
