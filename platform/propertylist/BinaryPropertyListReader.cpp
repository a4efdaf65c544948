// SPDX-License-Identifier: MIT
#include "platform/propertylist/BinaryPropertyListReader.h"

#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

#include <QDateTime>
#include <QStringDecoder>
#include <QtEndian>

#include <bit>
#include <cstring>

namespace platform {

namespace {

constexpr quint64 magicSize = 8;
constexpr quint64 trailerSize = 32;

// How much more than the data itself its values may unfold to. Real files share short strings and
// numbers only, each of which takes a byte or more wherever it is referred to.
constexpr double unfoldingFactor = 64;
constexpr double unfoldingAllowance = 64.0 * 1024 * 1024;
constexpr double weightOfValue = 16;

double weightOf(const QVariant& scalar)
{
    if (scalar.typeId() == QMetaType::QString)
        return weightOfValue + 2.0 * double(scalar.toString().size());
    if (scalar.typeId() == QMetaType::QByteArray)
        return weightOfValue + double(scalar.toByteArray().size());
    return weightOfValue;
}

} // namespace

BinaryPropertyListReader::BinaryPropertyListReader(QByteArrayView data)
    : m_data(data)
{
}

std::optional<QVariant> BinaryPropertyListReader::read(Error* error)
{
    if (readTrailer() && readObject(m_root) && readElements())
        return m_objects[m_root].value;
    setError(error, propertyListError(PropertyListErrorCode::ReadCorrupt,
                                      "The property list is damaged."));
    return std::nullopt;
}

bool BinaryPropertyListReader::readTrailer()
{
    const quint64 size = quint64(m_data.size());
    if (size < magicSize + trailerSize || !m_data.startsWith("bplist0"))
        return false;
    const quint64 trailer = size - trailerSize;
    m_offsetSize = numberAt(trailer + 6, 1);
    m_referenceSize = numberAt(trailer + 7, 1);
    m_objectCount = numberAt(trailer + 8, 8);
    m_root = numberAt(trailer + 16, 8);
    m_tableOffset = numberAt(trailer + 24, 8);
    if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8)
        return false;
    if (m_tableOffset < magicSize || m_tableOffset > trailer || m_root >= m_objectCount)
        return false;
    if (m_objectCount > (trailer - m_tableOffset) / m_offsetSize)
        return false;
    m_bytesLeft = m_tableOffset - magicSize;
    m_objects.resize(m_objectCount);
    return true;
}

// Depth first with a stack of our own; an element that was read before is taken as it is.
bool BinaryPropertyListReader::readElements()
{
    while (!m_open.empty()) {
        Frame& frame = m_open.back();
        const quint64 references = frame.isDictionary ? frame.count * 2 : frame.count;
        if (frame.next < references) {
            const quint64 index = referenceAt(frame, frame.next++);
            if (index >= m_objectCount || !readObject(index))
                return false;
            continue;
        }
        if (!closeContainer(frame))
            return false;
        m_open.pop_back();
    }
    return true;
}

bool BinaryPropertyListReader::readObject(quint64 index)
{
    Object& object = m_objects[index];
    if (object.state != State::Unread)
        return object.state == State::Read;
    const std::optional<Header> header =
        readHeader(numberAt(m_tableOffset + index * m_offsetSize, m_offsetSize));
    if (!header)
        return false;
    if (header->kind == 0xA0 || header->kind == 0xD0)
        return openContainer(index, *header);
    std::optional<QVariant> value = readScalar(*header);
    if (!value)
        return false;
    object.weight = weightOf(*value);
    object.value = std::move(*value);
    object.state = State::Read;
    return true;
}

bool BinaryPropertyListReader::openContainer(quint64 index, const Header& header)
{
    if (int(m_open.size()) >= propertyListDepthLimit || header.count > quint64(m_data.size()))
        return false;
    const bool isDictionary = header.kind == 0xD0;
    const quint64 references = isDictionary ? header.count * 2 : header.count;
    if (!takeBytes(header.offset, references * m_referenceSize))
        return false;
    m_objects[index].state = State::Open;
    m_open.push_back({index, isDictionary, header.count, header.offset, 0});
    return true;
}

bool BinaryPropertyListReader::closeContainer(const Frame& frame)
{
    QVariantList list;
    QVariantMap dictionary;
    double weight = weightOfValue;
    int height = 0;
    for (quint64 position = 0; position < frame.count; ++position) {
        const quint64 valuePosition = frame.isDictionary ? frame.count + position : position;
        const Object& element = m_objects[referenceAt(frame, valuePosition)];
        weight += element.weight;
        height = std::max(height, element.height);
        if (!frame.isDictionary) {
            list += element.value;
            continue;
        }
        const QVariant& key = m_objects[referenceAt(frame, position)].value;
        if (key.typeId() != QMetaType::QString)
            return false;
        weight += weightOf(key);
        dictionary.insert(key.toString(), element.value);
    }
    Object& object = m_objects[frame.index];
    object.height = height + 1;
    object.weight = weight;
    object.state = State::Read;
    object.value = frame.isDictionary ? QVariant(dictionary) : QVariant(list);
    const double limit = unfoldingAllowance + unfoldingFactor * double(m_data.size());
    return weight <= limit && object.height <= propertyListDepthLimit;
}

std::optional<BinaryPropertyListReader::Header>
BinaryPropertyListReader::readHeader(quint64 offset) const
{
    if (offset < magicSize || offset >= m_tableOffset)
        return std::nullopt;
    const int marker = int(numberAt(offset, 1));
    Header header{marker & 0xF0, quint64(marker & 0x0F), offset + 1};
    const bool hasCount = header.kind >= 0x40 && header.kind != 0x80;
    if (!hasCount || header.count != 15)
        return header;
    if (header.offset >= m_tableOffset)
        return std::nullopt;
    const int sizeMarker = int(numberAt(header.offset, 1));
    const quint64 size = quint64(1) << (sizeMarker & 0x0F);
    if ((sizeMarker & 0xF0) != 0x10 || size > 8 || size > m_tableOffset - header.offset - 1)
        return std::nullopt;
    header.count = numberAt(header.offset + 1, size);
    header.offset += 1 + size;
    return header;
}

std::optional<QVariant> BinaryPropertyListReader::readScalar(const Header& header)
{
    switch (header.kind) {
    case 0x00:
        if ((header.count == 8 || header.count == 9) && takeBytes(header.offset - 1, 1))
            return QVariant(header.count == 9);
        return std::nullopt;
    case 0x10:
        return header.count <= 4 ? readInteger(header.offset, quint64(1) << header.count)
                                 : std::nullopt;
    case 0x20:
        return readReal(header);
    case 0x30:
        return header.count == 3 ? readDate(header.offset) : std::nullopt;
    case 0x40:
        if (!takeBytes(header.offset, header.count))
            return std::nullopt;
        return QVariant(
            m_data.sliced(qsizetype(header.offset), qsizetype(header.count)).toByteArray());
    case 0x50:
    case 0x60:
        return readString(header);
    case 0x80: {
        const quint64 size = header.count + 1;
        if (size > 8 || !takeBytes(header.offset, size))
            return std::nullopt;
        const quint64 uid = numberAt(header.offset, size);
        if (uid > std::numeric_limits<quint32>::max())
            return std::nullopt;
        return QVariant::fromValue(PropertyListUid{quint32(uid)});
    }
    default:
        return std::nullopt;
    }
}

std::optional<QVariant> BinaryPropertyListReader::readString(const Header& header)
{
    if (header.count > quint64(m_data.size()))
        return std::nullopt;
    const bool isWide = header.kind == 0x60;
    const quint64 size = isWide ? header.count * 2 : header.count;
    if (!takeBytes(header.offset, size))
        return std::nullopt;
    const char* const bytes = m_data.data() + header.offset;
    if (!isWide)
        return QVariant(QString::fromLatin1(bytes, qsizetype(size)));
    QString text(qsizetype(header.count), Qt::Uninitialized);
    qFromBigEndian<char16_t>(bytes, text.size(), text.data());
    return QVariant(text);
}

std::optional<QVariant> BinaryPropertyListReader::readInteger(quint64 offset, quint64 size)
{
    if (!takeBytes(offset, size))
        return std::nullopt;
    if (size <= 8)
        return QVariant(qlonglong(numberAt(offset, size)));
    const quint64 high = numberAt(offset, 8);
    const quint64 low = numberAt(offset + 8, 8);
    const bool lowIsNegative = qint64(low) < 0;
    if (high == 0)
        return lowIsNegative ? QVariant(qulonglong(low)) : QVariant(qlonglong(low));
    if (high == std::numeric_limits<quint64>::max() && lowIsNegative)
        return QVariant(qlonglong(low));
    return std::nullopt;
}

std::optional<QVariant> BinaryPropertyListReader::readReal(const Header& header)
{
    const quint64 size = quint64(1) << header.count;
    if ((size != 4 && size != 8) || !takeBytes(header.offset, size))
        return std::nullopt;
    const quint64 bits = numberAt(header.offset, size);
    return size == 4 ? QVariant(std::bit_cast<float>(quint32(bits)))
                     : QVariant(std::bit_cast<double>(bits));
}

std::optional<QVariant> BinaryPropertyListReader::readDate(quint64 offset)
{
    if (!takeBytes(offset, 8))
        return std::nullopt;
    const auto date = dateFromSecondsSince2001(std::bit_cast<double>(numberAt(offset, 8)));
    return date ? std::optional(QVariant(*date)) : std::nullopt;
}

bool BinaryPropertyListReader::takeBytes(quint64 offset, quint64 size)
{
    if (offset > m_tableOffset || size > m_tableOffset - offset || size > m_bytesLeft)
        return false;
    m_bytesLeft -= size;
    return true;
}

quint64 BinaryPropertyListReader::numberAt(quint64 offset, quint64 size) const
{
    quint64 number = 0;
    for (quint64 position = 0; position < size; ++position)
        number = number << 8 | uchar(m_data[qsizetype(offset + position)]);
    return number;
}

quint64 BinaryPropertyListReader::referenceAt(const Frame& frame, quint64 position) const
{
    return numberAt(frame.referencesOffset + position * m_referenceSize, m_referenceSize);
}

} // namespace platform
