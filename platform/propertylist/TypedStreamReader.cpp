// SPDX-License-Identifier: MIT
#include "platform/propertylist/TypedStreamReader.h"

namespace platform {

namespace {

// A reference to the entry n of a table is the integer n + firstReference.
constexpr qint64 firstReference = -110;

constexpr uchar formatVersion = 4;
constexpr std::size_t nestingLimit = 256;
constexpr qsizetype ancestorLimit = 16;
constexpr qsizetype typesLimit = 256;
constexpr qsizetype stepsPerByte = 8;

} // namespace

TypedStreamReader::TypedStreamReader(QByteArrayView data)
    : m_bytes(data)
    , m_stepsLeft(data.size() * stepsPerByte)
{
}

std::optional<TypedStream> TypedStreamReader::read()
{
    if (!readHeader())
        return std::nullopt;
    m_frames.push_back({});
    while (!m_frames.empty()) {
        if (!readStep())
            return std::nullopt;
    }
    return std::move(m_stream);
}

bool TypedStreamReader::readHeader()
{
    if (m_bytes.takeNumber(1) != formatVersion)
        return false;
    const std::optional<QByteArray> signature = m_bytes.readBytes();
    if (!signature)
        return false;
    const bool isLittleEndian = *signature == "streamtyped";
    m_bytes.setLittleEndian(isLittleEndian);
    return (isLittleEndian || *signature == "typedstream") && m_bytes.readInteger();
}

bool TypedStreamReader::readStep()
{
    Frame& frame = m_frames.back();
    if (frame.next < frame.types.size())
        return readValue(frame);
    const bool isAtEnd =
        frame.object ? m_bytes.takeMark(TypedStreamBytes::endMark) : m_bytes.isAtEnd();
    if (!isAtEnd)
        return readGroupStart(frame);
    m_frames.pop_back();
    return true;
}

bool TypedStreamReader::readGroupStart(Frame& frame)
{
    const std::optional<QByteArray> types = readSharedString();
    if (!types || types->size() > typesLimit)
        return false;
    frame.types = *types;
    frame.next = 0;
    return true;
}

bool TypedStreamReader::readValue(Frame& frame)
{
    if (m_stepsLeft-- <= 0)
        return false;
    const char type = frame.types[frame.next++];
    switch (type) {
    case '@':
        return readObject();
    case '[':
        return readArray(frame);
    case '{':
        return skipStructName(frame);
    case '}':
        return true;
    case '*':
        return readCString();
    default:
        break;
    }
    const std::optional<TypedStream::Value> value = readScalar(type);
    if (value)
        add(*value);
    return value.has_value();
}

bool TypedStreamReader::readObject()
{
    if (m_bytes.takeMark(TypedStreamBytes::noneMark)) {
        add({});
        return true;
    }
    TypedStream::Value value{TypedStream::Value::Kind::Object, 0, {}, 0};
    if (!m_bytes.takeMark(TypedStreamBytes::newMark)) {
        const std::optional<std::size_t> reference = readReference(m_shared.size());
        if (!reference || m_shared[*reference].kind != Shared::Kind::Object)
            return false;
        value.object = m_shared[*reference].index;
        add(value);
        return true;
    }
    if (m_frames.size() > nestingLimit)
        return false;
    value.object = m_stream.m_objects.size();
    m_shared.push_back({Shared::Kind::Object, value.object});
    m_stream.m_objects.emplace_back();
    add(value);
    const std::optional<QStringList> objectClass = readClass();
    if (!objectClass)
        return false;
    m_stream.m_objects[value.object].classNames = *objectClass;
    m_frames.push_back({value.object, {}, 0});
    return true;
}

// The class of an object with its ancestors up to one that is known already.
std::optional<QStringList> TypedStreamReader::readClass()
{
    const std::size_t firstNewClass = m_classes.size();
    QStringList newNames;
    while (m_bytes.takeMark(TypedStreamBytes::newMark)) {
        m_shared.push_back({Shared::Kind::Class, m_classes.size()});
        m_classes.emplace_back();
        const std::optional<QByteArray> name = readSharedString();
        if (!name || !m_bytes.readInteger())
            return std::nullopt;
        newNames += QString::fromUtf8(*name);
    }
    const std::optional<QStringList> ancestors = readClassReference();
    if (!ancestors || newNames.size() + ancestors->size() > ancestorLimit)
        return std::nullopt;
    newNames += *ancestors;
    for (std::size_t index = firstNewClass; index < m_classes.size(); ++index)
        m_classes[index] = newNames.mid(qsizetype(index - firstNewClass));
    return newNames;
}

// Only a class that is complete may be referred to, so that none becomes its own ancestor.
std::optional<QStringList> TypedStreamReader::readClassReference()
{
    if (m_bytes.takeMark(TypedStreamBytes::noneMark))
        return QStringList();
    const std::optional<std::size_t> reference = readReference(m_shared.size());
    if (!reference || m_shared[*reference].kind != Shared::Kind::Class)
        return std::nullopt;
    const QStringList& names = m_classes[m_shared[*reference].index];
    return names.isEmpty() ? std::nullopt : std::optional(names);
}

// [12c], of bytes or of numbers.
bool TypedStreamReader::readArray(Frame& frame)
{
    const qsizetype end = frame.types.indexOf(']', frame.next);
    if (end < frame.next + 2)
        return false;
    bool isNumber = false;
    const qint64 count = frame.types.mid(frame.next, end - 1 - frame.next).toUInt(&isNumber);
    const char type = frame.types[end - 1];
    frame.next = end + 1;
    if (!isNumber)
        return false;
    if (type == 'c' || type == 'C') {
        const auto bytes = m_bytes.take(count);
        if (bytes)
            add({TypedStream::Value::Kind::Bytes, 0, bytes->toByteArray(), 0});
        return bytes.has_value();
    }
    for (qint64 position = 0; position < count; ++position) {
        const std::optional<TypedStream::Value> value = readScalar(type);
        if (!value)
            return false;
        add(*value);
    }
    return true;
}

// The members of {name=ff} follow as if there were no struct.
bool TypedStreamReader::skipStructName(Frame& frame)
{
    const qsizetype end = frame.types.indexOf('=', frame.next);
    frame.next = end + 1;
    return end >= 0;
}

bool TypedStreamReader::readCString()
{
    TypedStream::Value value;
    if (m_bytes.takeMark(TypedStreamBytes::newMark)) {
        m_shared.push_back({Shared::Kind::Text, 0});
        const std::optional<QByteArray> text = readSharedString();
        if (!text)
            return false;
        value = {TypedStream::Value::Kind::Bytes, 0, *text, 0};
    } else if (!m_bytes.takeMark(TypedStreamBytes::noneMark) && !readReference(m_shared.size())) {
        return false;
    }
    add(value);
    return true;
}

std::optional<TypedStream::Value> TypedStreamReader::readScalar(char type)
{
    using Kind = TypedStream::Value::Kind;
    switch (type) {
    case 'c':
    case 'C': {
        const std::optional<quint64> byte = m_bytes.takeNumber(1);
        return byte ? std::optional(TypedStream::Value{Kind::Number, double(qint8(*byte)), {}, 0})
                    : std::nullopt;
    }
    case 'f':
    case 'd': {
        const std::optional<double> real = m_bytes.readReal(type == 'f' ? 4 : 8);
        return real ? std::optional(TypedStream::Value{Kind::Number, *real, {}, 0}) : std::nullopt;
    }
    case '+': {
        const std::optional<QByteArray> bytes = m_bytes.readBytes();
        return bytes ? std::optional(TypedStream::Value{Kind::Bytes, 0, *bytes, 0}) : std::nullopt;
    }
    case '%':
    case ':': {
        const std::optional<QByteArray> text = readSharedString();
        return text ? std::optional(TypedStream::Value{Kind::Bytes, 0, *text, 0}) : std::nullopt;
    }
    default:
        break;
    }
    if (!QByteArrayView("sSiIlLqQ").contains(type))
        return std::nullopt;
    const std::optional<qint64> integer = m_bytes.readInteger();
    return integer ? std::optional(TypedStream::Value{Kind::Number, double(*integer), {}, 0})
                   : std::nullopt;
}

std::optional<QByteArray> TypedStreamReader::readSharedString()
{
    if (m_bytes.takeMark(TypedStreamBytes::newMark)) {
        const std::optional<QByteArray> text = m_bytes.readBytes();
        if (text)
            m_strings.push_back(*text);
        return text;
    }
    const std::optional<std::size_t> reference = readReference(m_strings.size());
    return reference ? std::optional(m_strings[*reference]) : std::nullopt;
}

std::optional<std::size_t> TypedStreamReader::readReference(std::size_t tableSize)
{
    const std::optional<qint64> number = m_bytes.readInteger();
    if (!number || *number < firstReference || std::size_t(*number - firstReference) >= tableSize)
        return std::nullopt;
    return std::size_t(*number - firstReference);
}

void TypedStreamReader::add(const TypedStream::Value& value)
{
    const std::optional<std::size_t> object = m_frames.back().object;
    (object ? m_stream.m_objects[*object].values : m_stream.m_values).push_back(value);
}

} // namespace platform
