// SPDX-License-Identifier: MIT
#include "platform/propertylist/KeyedArchiver.h"

#include "platform/propertylist/ArchiveFormat.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

namespace platform {

namespace {

QVariant reference(PropertyListUid uid)
{
    return QVariant::fromValue(uid);
}

QStringList mutableClassNames(const char* mutableName, const char* immutableName, bool isMutable)
{
    QStringList names;
    if (isMutable)
        names += QString::fromLatin1(mutableName);
    return names << QString::fromLatin1(immutableName) << QStringLiteral("NSObject");
}

// Strings, data and numbers lie in the object table as they are; a mutable string or mutable data
// is an object that holds its contents.
std::optional<QVariant> plainObject(const ArchiveValue& value)
{
    using Kind = ArchiveValue::Kind;
    if (value.isMutable())
        return std::nullopt;
    switch (value.kind()) {
    case Kind::String:
        return QVariant(value.toText());
    case Kind::Data:
        return QVariant(value.toData());
    case Kind::Bool:
        return QVariant(value.toBool());
    case Kind::Integer:
        return QVariant(qlonglong(value.toInt64()));
    case Kind::Float:
        return QVariant(value.toFloat());
    case Kind::Double:
        return QVariant(value.toDouble());
    default:
        return std::nullopt;
    }
}

// Equal for equal values of one type alone; hashing a variant itself would make 1 and true one.
QByteArray uniqueKey(const QVariant& value)
{
    QByteArray contents;
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString();
        contents = QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    } else if (value.typeId() == QMetaType::QByteArray) {
        contents = value.toByteArray();
    } else {
        contents =
            QByteArray(static_cast<const char*>(value.constData()), value.metaType().sizeOf());
    }
    return QByteArray::number(value.typeId()) + ':' + contents;
}

} // namespace

std::optional<QByteArray> KeyedArchiver::archivedDataWithRootObject(const ArchiveValue& root,
                                                                    Error* error)
{
    KeyedArchiver archiver;
    archiver.encodeObject(root, QStringLiteral("root"));
    return archiver.finishEncoding(error);
}

std::optional<QByteArray>
KeyedArchiver::archivedDataWithRootObject(const std::shared_ptr<KeyedCoding>& root, Error* error)
{
    return archivedDataWithRootObject(ArchiveValue::object(root), error);
}

KeyedArchiver::KeyedArchiver()
    : m_objects{QStringLiteral("$null")}
{
}

void KeyedArchiver::encodeObject(const ArchiveValue& object, const QString& key)
{
    setPlain(key, reference(add(object)));
}

void KeyedArchiver::encodeObject(const std::shared_ptr<KeyedCoding>& object, const QString& key)
{
    encodeObject(ArchiveValue::object(object), key);
}

void KeyedArchiver::encodeString(const QString& text, const QString& key)
{
    encodeObject(ArchiveValue::string(text), key);
}

void KeyedArchiver::encodeData(const QByteArray& bytes, const QString& key)
{
    encodeObject(ArchiveValue::data(bytes), key);
}

void KeyedArchiver::encodeDate(const QDateTime& date, const QString& key)
{
    encodeObject(date.isValid() ? ArchiveValue::date(date) : ArchiveValue(), key);
}

void KeyedArchiver::encodeRect(const QRectF& rect, const QString& key)
{
    encodeString(archive::textFromRect(rect), key);
}

void KeyedArchiver::encodeInt64(qint64 value, const QString& key)
{
    setPlain(key, qlonglong(value));
}

void KeyedArchiver::encodeBool(bool value, const QString& key)
{
    setPlain(key, value);
}

void KeyedArchiver::encodeFloat(float value, const QString& key)
{
    setPlain(key, value);
}

void KeyedArchiver::encodeDouble(double value, const QString& key)
{
    setPlain(key, value);
}

void KeyedArchiver::encodeBytes(const QByteArray& bytes, const QString& key)
{
    setPlain(key, bytes);
}

std::optional<QByteArray> KeyedArchiver::finishEncoding(Error* error)
{
    if (m_tooDeep) {
        setError(error, propertyListError(PropertyListErrorCode::WriteInvalid,
                                          "Objects are nested too deeply."));
        return std::nullopt;
    }
    QVariantMap archive;
    archive.insert(QStringLiteral("$archiver"), QString::fromLatin1(archive::archiver));
    archive.insert(QStringLiteral("$version"), archive::version);
    archive.insert(QStringLiteral("$top"), m_top);
    archive.insert(QStringLiteral("$objects"), m_objects);
    return propertyListData(archive, PropertyListFormat::Binary, error);
}

void KeyedArchiver::setPlain(const QString& key, const QVariant& value)
{
    m_current->insert(archive::escapedKey(key), value);
}

PropertyListUid KeyedArchiver::add(const ArchiveValue& value)
{
    if (value.isNull())
        return {0};
    if (const std::optional<QVariant> plain = plainObject(value))
        return addPlain(*plain);
    const auto known = m_identities.constFind(value.identity());
    if (known != m_identities.constEnd())
        return *known;
    if (m_depth >= archive::depthLimit) {
        m_tooDeep = true;
        return {0};
    }
    // The number is given away before the contents are archived, which may refer back to it.
    const PropertyListUid uid{quint32(m_objects.size())};
    m_objects.append(QVariant());
    m_identities.insert(value.identity(), uid);
    m_archived.append(value);

    QVariantMap record;
    QVariantMap* const outer = std::exchange(m_current, &record);
    ++m_depth;
    fill(value);
    --m_depth;
    m_current = outer;
    m_objects[uid.value] = record;
    return uid;
}

PropertyListUid KeyedArchiver::addPlain(const QVariant& value)
{
    const QByteArray key = uniqueKey(value);
    const auto known = m_plain.constFind(key);
    if (known != m_plain.constEnd())
        return *known;
    const PropertyListUid uid{quint32(m_objects.size())};
    m_objects.append(value);
    m_plain.insert(key, uid);
    return uid;
}

QVariantList KeyedArchiver::addAll(const QList<ArchiveValue>& values)
{
    QVariantList references;
    for (const ArchiveValue& value : values)
        references.append(reference(add(value)));
    return references;
}

void KeyedArchiver::fill(const ArchiveValue& value)
{
    switch (value.kind()) {
    case ArchiveValue::Kind::String:
        setPlain(QStringLiteral("NS.string"), value.toText());
        return setClass(mutableClassNames("NSMutableString", "NSString", true));
    case ArchiveValue::Kind::Data:
        setPlain(QStringLiteral("NS.data"), value.toData());
        return setClass(mutableClassNames("NSMutableData", "NSData", true));
    case ArchiveValue::Kind::Date: {
        const std::optional<double> seconds = secondsSince2001(value.toDate());
        // An invalid date goes on as it is and makes the property list fail.
        setPlain(QStringLiteral("NS.time"),
                 seconds ? QVariant(*seconds) : QVariant(value.toDate()));
        return setClass({QStringLiteral("NSDate"), QStringLiteral("NSObject")});
    }
    case ArchiveValue::Kind::Array:
        setPlain(QStringLiteral("NS.objects"), addAll(value.elements()));
        return setClass(mutableClassNames("NSMutableArray", "NSArray", value.isMutable()));
    case ArchiveValue::Kind::Dictionary: {
        QList<ArchiveValue> keys;
        QList<ArchiveValue> values;
        for (const ArchiveValue::Entry& entry : value.entries()) {
            keys += entry.first;
            values += entry.second;
        }
        setPlain(QStringLiteral("NS.keys"), addAll(keys));
        setPlain(QStringLiteral("NS.objects"), addAll(values));
        return setClass(
            mutableClassNames("NSMutableDictionary", "NSDictionary", value.isMutable()));
    }
    case ArchiveValue::Kind::Object: {
        const std::shared_ptr<KeyedCoding> object = value.toObject();
        object->encodeWithCoder(*this);
        return setClass(object->archivedClassNames());
    }
    default:
        return fillUnknown(*value.toUnknown());
    }
}

void KeyedArchiver::fillUnknown(const ArchivedObject& object)
{
    using Form = ArchivedObject::Field::Form;
    for (const ArchivedObject::Field& field : object.fields) {
        if (field.form == Form::Plain)
            setPlain(field.key, field.plain);
        else if (field.form == Form::References)
            setPlain(field.key, addAll(field.references));
        else
            encodeObject(field.references.value(0), field.key);
    }
    setClass(object.classNames);
}

void KeyedArchiver::setClass(const QStringList& classNames)
{
    m_current->insert(QStringLiteral("$class"), reference(addClass(classNames)));
}

PropertyListUid KeyedArchiver::addClass(const QStringList& classNames)
{
    const QString key = classNames.join(QLatin1Char('\n'));
    const auto known = m_classes.constFind(key);
    if (known != m_classes.constEnd())
        return *known;
    const PropertyListUid uid{quint32(m_objects.size())};
    QVariantMap record;
    record.insert(QStringLiteral("$classname"), classNames.value(0));
    record.insert(QStringLiteral("$classes"), classNames);
    m_objects.append(record);
    m_classes.insert(key, uid);
    return uid;
}

} // namespace platform
