// SPDX-License-Identifier: MIT
#include "platform/propertylist/ArchiveValue.h"

#include <cmath>
#include <limits>
#include <variant>

namespace platform {

// The alternatives stand in the order of the kinds; none is at its place for null.
struct ArchiveValue::Node {
    std::variant<std::monostate, QString, bool, qint64, float, double, QByteArray, QDateTime,
                 QList<ArchiveValue>, QList<Entry>, std::shared_ptr<KeyedCoding>, ArchivedObject>
        content;
    Mutability mutability = Mutability::Immutable;

    friend bool operator==(const Node& left, const Node& right) = default;
};

namespace {

qint64 clampedInteger(double value)
{
    constexpr double limit = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= limit)
        return std::numeric_limits<qint64>::max();
    return value < -limit ? std::numeric_limits<qint64>::min() : qint64(value);
}

} // namespace

ArchiveValue::ArchiveValue(Node node)
    : m_node(std::make_shared<const Node>(std::move(node)))
{
}

ArchiveValue ArchiveValue::string(const QString& text, Mutability mutability)
{
    return ArchiveValue(Node{text, mutability});
}

ArchiveValue ArchiveValue::boolean(bool value)
{
    return ArchiveValue(Node{value});
}

ArchiveValue ArchiveValue::integer(qint64 value)
{
    return ArchiveValue(Node{value});
}

ArchiveValue ArchiveValue::floating(float value)
{
    return ArchiveValue(Node{value});
}

ArchiveValue ArchiveValue::floating(double value)
{
    return ArchiveValue(Node{value});
}

ArchiveValue ArchiveValue::data(const QByteArray& bytes, Mutability mutability)
{
    return ArchiveValue(Node{bytes, mutability});
}

ArchiveValue ArchiveValue::date(const QDateTime& date)
{
    return ArchiveValue(Node{date});
}

ArchiveValue ArchiveValue::array(const QList<ArchiveValue>& elements, Mutability mutability)
{
    return ArchiveValue(Node{elements, mutability});
}

ArchiveValue ArchiveValue::dictionary(const QList<Entry>& entries, Mutability mutability)
{
    return ArchiveValue(Node{entries, mutability});
}

ArchiveValue ArchiveValue::object(const std::shared_ptr<KeyedCoding>& object)
{
    return object ? ArchiveValue(Node{object}) : ArchiveValue();
}

ArchiveValue ArchiveValue::unknown(const ArchivedObject& object)
{
    return ArchiveValue(Node{object});
}

ArchiveValue::Kind ArchiveValue::kind() const
{
    return m_node ? static_cast<Kind>(m_node->content.index()) : Kind::Null;
}

bool ArchiveValue::isMutable() const
{
    return m_node && m_node->mutability == Mutability::Mutable;
}

QString ArchiveValue::toText() const
{
    return kind() == Kind::String ? std::get<QString>(m_node->content) : QString();
}

bool ArchiveValue::toBool() const
{
    return toDouble() != 0;
}

qint64 ArchiveValue::toInt64() const
{
    if (kind() == Kind::Integer)
        return std::get<qint64>(m_node->content);
    return clampedInteger(toDouble());
}

float ArchiveValue::toFloat() const
{
    return float(toDouble());
}

double ArchiveValue::toDouble() const
{
    switch (kind()) {
    case Kind::Bool:
        return std::get<bool>(m_node->content) ? 1 : 0;
    case Kind::Integer:
        return double(std::get<qint64>(m_node->content));
    case Kind::Float:
        return double(std::get<float>(m_node->content));
    case Kind::Double:
        return std::get<double>(m_node->content);
    default:
        return 0;
    }
}

QByteArray ArchiveValue::toData() const
{
    return kind() == Kind::Data ? std::get<QByteArray>(m_node->content) : QByteArray();
}

QDateTime ArchiveValue::toDate() const
{
    return kind() == Kind::Date ? std::get<QDateTime>(m_node->content) : QDateTime();
}

QList<ArchiveValue> ArchiveValue::elements() const
{
    return kind() == Kind::Array ? std::get<QList<ArchiveValue>>(m_node->content)
                                 : QList<ArchiveValue>();
}

QList<ArchiveValue::Entry> ArchiveValue::entries() const
{
    return kind() == Kind::Dictionary ? std::get<QList<Entry>>(m_node->content) : QList<Entry>();
}

ArchiveValue ArchiveValue::valueForKey(const QString& key) const
{
    for (const Entry& entry : entries()) {
        if (entry.first.kind() == Kind::String && entry.first.toText() == key)
            return entry.second;
    }
    return {};
}

std::shared_ptr<KeyedCoding> ArchiveValue::toObject() const
{
    return kind() == Kind::Object ? std::get<std::shared_ptr<KeyedCoding>>(m_node->content)
                                  : nullptr;
}

const ArchivedObject* ArchiveValue::toUnknown() const
{
    return kind() == Kind::Unknown ? &std::get<ArchivedObject>(m_node->content) : nullptr;
}

const void* ArchiveValue::identity() const
{
    if (const auto object = toObject())
        return object.get();
    return m_node.get();
}

bool operator==(const ArchiveValue& left, const ArchiveValue& right)
{
    if (left.m_node == right.m_node)
        return true;
    return left.m_node && right.m_node && *left.m_node == *right.m_node;
}

const ArchivedObject::Field* ArchivedObject::fieldForKey(const QString& key) const
{
    for (const Field& field : fields) {
        if (field.key == key)
            return &field;
    }
    return nullptr;
}

ArchiveValue ArchivedObject::referenceForKey(const QString& key) const
{
    const Field* const field = fieldForKey(key);
    return field && field->form == Field::Form::Reference ? field->references.value(0)
                                                          : ArchiveValue();
}

bool operator==(const ArchivedObject::Field& left, const ArchivedObject::Field& right)
{
    return left.key == right.key && left.form == right.form && left.plain == right.plain &&
           left.references == right.references;
}

bool operator==(const ArchivedObject& left, const ArchivedObject& right)
{
    return left.classNames == right.classNames && left.fields == right.fields;
}

} // namespace platform
