// SPDX-License-Identifier: MIT
#include "platform/propertylist/BinaryPropertyListWriter.h"

#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

#include <QtEndian>

#include <bit>

namespace platform {

namespace {

// Data above this size is not compared with what was written before.
constexpr qsizetype sharedScalarLimit = 4096;

int bytesNeededFor(quint64 value)
{
    if (value <= 0xFF)
        return 1;
    if (value <= 0xFFFF)
        return 2;
    return value <= 0xFFFFFFFF ? 4 : 8;
}

void appendNumber(QByteArray& bytes, quint64 value, int size)
{
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
        bytes += char(value >> shift & 0xFF);
}

void appendUnsigned(QByteArray& bytes, quint64 value)
{
    // Readers take 1, 2 and 4 bytes as unsigned, 8 as signed: what exceeds that takes 16.
    if (value > quint64(std::numeric_limits<qint64>::max())) {
        bytes += char(0x14);
        appendNumber(bytes, 0, 8);
        appendNumber(bytes, value, 8);
        return;
    }
    const int size = bytesNeededFor(value);
    bytes += char(0x10 | std::countr_zero(unsigned(size)));
    appendNumber(bytes, value, size);
}

// The marker of an object with a count; counts from 15 on follow as an integer object.
QByteArray markerWithCount(int kind, quint64 count)
{
    QByteArray bytes(1, char(kind | int(qMin<quint64>(count, 15))));
    if (count >= 15)
        appendUnsigned(bytes, count);
    return bytes;
}

QByteArray encodedInteger(const QVariant& value)
{
    QByteArray bytes;
    if (value.typeId() == QMetaType::LongLong && value.toLongLong() < 0) {
        bytes += char(0x13);
        appendNumber(bytes, quint64(value.toLongLong()), 8);
    } else {
        appendUnsigned(bytes, value.toULongLong());
    }
    return bytes;
}

QByteArray encodedDouble(int marker, double value)
{
    QByteArray bytes(1, char(marker));
    appendNumber(bytes, std::bit_cast<quint64>(value), 8);
    return bytes;
}

QByteArray encodedFloat(float value)
{
    QByteArray bytes(1, char(0x22));
    appendNumber(bytes, std::bit_cast<quint32>(value), 4);
    return bytes;
}

QByteArray encodedString(const QString& text)
{
    const bool isAscii =
        std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
    if (isAscii)
        return markerWithCount(0x50, quint64(text.size())) + text.toLatin1();
    const QString repaired = repairedText(text, TextRepair::Surrogates);
    QByteArray bytes = markerWithCount(0x60, quint64(repaired.size()));
    const qsizetype start = bytes.size();
    bytes.resize(start + repaired.size() * 2);
    qToBigEndian<char16_t>(repaired.utf16(), repaired.size(), bytes.data() + start);
    return bytes;
}

QByteArray encodedUid(quint32 uid)
{
    const int size = bytesNeededFor(uid);
    QByteArray bytes(1, char(0x80 | (size - 1)));
    appendNumber(bytes, uid, size);
    return bytes;
}

QByteArray encodedScalar(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return encodedString(value.toString());
    case QMetaType::QByteArray:
        return markerWithCount(0x40, quint64(value.toByteArray().size())) + value.toByteArray();
    case QMetaType::Bool:
        return QByteArray(1, char(value.toBool() ? 0x09 : 0x08));
    case QMetaType::Float:
        return encodedFloat(value.toFloat());
    case QMetaType::Double:
        return encodedDouble(0x23, value.toDouble());
    case QMetaType::QDateTime:
        return encodedDouble(0x33, *secondsSince2001(value.toDateTime()));
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return encodedInteger(value);
    default:
        return encodedUid(value.value<PropertyListUid>().value);
    }
}

} // namespace

std::optional<QByteArray> BinaryPropertyListWriter::write(const QVariant& root, Error* error)
{
    bool succeeded = add(root, 0).has_value();
    // The list grows while it is walked: each container appends its elements behind itself.
    for (std::size_t index = 0; succeeded && index < m_objects.size(); ++index)
        succeeded = addElements(index);
    if (!succeeded) {
        setError(error, m_error);
        return std::nullopt;
    }
    return assemble();
}

std::optional<quint64> BinaryPropertyListWriter::add(const QVariant& value, int depth)
{
    const std::optional<QVariant> canonical = canonicalPropertyListValue(value);
    if (!canonical)
        return fail("A value has no place in a property list.");
    const int type = canonical->typeId();
    if (type != QMetaType::QVariantList && type != QMetaType::QVariantMap)
        return addScalar(encodedScalar(*canonical));
    if (depth >= propertyListDepthLimit)
        return fail("The property list is nested too deeply.");
    m_objects.push_back({*canonical, depth, {}, {}});
    return m_objects.size() - 1;
}

std::optional<quint64> BinaryPropertyListWriter::addScalar(QByteArray encoded)
{
    const bool isShared = encoded.size() <= sharedScalarLimit;
    if (isShared) {
        const auto known = m_scalars.constFind(encoded);
        if (known != m_scalars.constEnd())
            return *known;
        m_scalars.insert(encoded, m_objects.size());
    }
    m_objects.push_back({{}, 0, std::move(encoded), {}});
    return m_objects.size() - 1;
}

bool BinaryPropertyListWriter::addElements(std::size_t index)
{
    const QVariant container = std::exchange(m_objects[index].container, {});
    const int depth = m_objects[index].depth + 1;
    std::vector<quint64> references;
    QByteArray marker;
    QVariantList elements;
    if (container.typeId() == QMetaType::QVariantMap) {
        const QVariantMap dictionary = container.toMap();
        if (!keysStayDistinct(dictionary, TextRepair::Surrogates)) {
            fail("Two keys of a dictionary cannot be told apart.");
            return false;
        }
        marker = markerWithCount(0xD0, quint64(dictionary.size()));
        for (auto key = dictionary.keyBegin(); key != dictionary.keyEnd(); ++key)
            references.push_back(*addScalar(encodedString(*key)));
        elements = dictionary.values();
    } else if (container.typeId() == QMetaType::QVariantList) {
        elements = container.toList();
        marker = markerWithCount(0xA0, quint64(elements.size()));
    } else {
        return true;
    }
    for (const QVariant& element : std::as_const(elements)) {
        const std::optional<quint64> reference = add(element, depth);
        if (!reference)
            return false;
        references.push_back(*reference);
    }
    m_objects[index].encoded = marker;
    m_objects[index].references = std::move(references);
    return true;
}

QByteArray BinaryPropertyListWriter::assemble() const
{
    QByteArray bytes = QByteArrayLiteral("bplist00");
    const int referenceSize = bytesNeededFor(m_objects.size());
    std::vector<quint64> offsets;
    offsets.reserve(m_objects.size());
    for (const Object& object : m_objects) {
        offsets.push_back(quint64(bytes.size()));
        bytes += object.encoded;
        for (const quint64 reference : object.references)
            appendNumber(bytes, reference, referenceSize);
    }
    const quint64 tableOffset = quint64(bytes.size());
    const int offsetSize = bytesNeededFor(tableOffset);
    for (const quint64 offset : offsets)
        appendNumber(bytes, offset, offsetSize);
    bytes += QByteArray(6, '\0');
    bytes += char(offsetSize);
    bytes += char(referenceSize);
    appendNumber(bytes, m_objects.size(), 8);
    appendNumber(bytes, 0, 8);
    appendNumber(bytes, tableOffset, 8);
    return bytes;
}

std::nullopt_t BinaryPropertyListWriter::fail(const char* reason)
{
    m_error = propertyListError(PropertyListErrorCode::WriteInvalid, reason);
    return std::nullopt;
}

} // namespace platform
