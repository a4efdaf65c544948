// SPDX-License-Identifier: MIT
#include "platform/propertylist/KeyedUnarchiver.h"

#include "platform/propertylist/ArchiveFormat.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"
#include "platform/propertylist/PropertyListValue.h"

#include <QScopeGuard>

namespace platform {

namespace {

using Mutability = ArchiveValue::Mutability;

// Sharing that unfolds beyond this is meant to harm whoever walks the objects.
constexpr quint64 weightLimit = 8'000'000;

[[noreturn]] void raise(const char* reason)
{
    throw InvalidArchive(
        propertyListError(PropertyListErrorCode::UnarchivingCorrupt, reason).localizedDescription());
}

std::optional<quint32> uidOf(const QVariant& value)
{
    if (value.typeId() != qMetaTypeId<PropertyListUid>())
        return std::nullopt;
    return value.value<PropertyListUid>().value;
}

bool isContainer(const QVariant& value)
{
    return value.typeId() == QMetaType::QVariantMap || value.typeId() == QMetaType::QVariantList;
}

// A value that lies in the object table or in an object itself.
ArchiveValue valueFromPlain(const QVariant& plain)
{
    switch (plain.typeId()) {
    case QMetaType::QString:
        return ArchiveValue::string(plain.toString());
    case QMetaType::QByteArray:
        return ArchiveValue::data(plain.toByteArray());
    case QMetaType::Bool:
        return ArchiveValue::boolean(plain.toBool());
    case QMetaType::LongLong:
        return ArchiveValue::integer(plain.toLongLong());
    case QMetaType::ULongLong:
        return ArchiveValue::floating(plain.toDouble());
    case QMetaType::Float:
        return ArchiveValue::floating(plain.toFloat());
    case QMetaType::Double:
        return ArchiveValue::floating(plain.toDouble());
    case QMetaType::QDateTime:
        return ArchiveValue::date(plain.toDateTime());
    default:
        return {};
    }
}

Mutability mutabilityOf(const QStringList& classNames, const char* mutableName)
{
    return classNames.contains(QLatin1String(mutableName)) ? Mutability::Mutable : Mutability::Immutable;
}

bool isReferenceList(const QVariant& value)
{
    if (value.typeId() != QMetaType::QVariantList)
        return false;
    const QVariantList list = value.toList();
    return std::all_of(list.begin(), list.end(), [](const QVariant& element) { return uidOf(element); });
}

// References below the first level could not be kept when the object is archived again.
bool holdsReferences(const QVariant& value)
{
    QVariantList open{value};
    while (!open.isEmpty()) {
        const QVariant current = open.takeLast();
        if (uidOf(current))
            return true;
        if (isContainer(current))
            open += current.typeId() == QMetaType::QVariantMap ? current.toMap().values() : current.toList();
    }
    return false;
}

} // namespace

InvalidArchive::InvalidArchive(const QString& message)
    : m_utf8(message.toUtf8())
{
}

ArchiveValue KeyedUnarchiver::unarchiveObjectWithData(QByteArrayView data, const ArchivedClasses& classes)
{
    return KeyedUnarchiver(data, classes).decodeObject(QStringLiteral("root"));
}

std::optional<ArchiveValue>
KeyedUnarchiver::unarchivedRootObject(QByteArrayView data, const ArchivedClasses& classes, Error* error)
{
    try {
        return unarchiveObjectWithData(data, classes);
    } catch (const InvalidArchive& exception) {
        setError(error, propertyListError(PropertyListErrorCode::UnarchivingCorrupt, exception.message()));
        return std::nullopt;
    }
}

KeyedUnarchiver::KeyedUnarchiver(QByteArrayView data, ArchivedClasses classes)
    : m_classes(std::move(classes))
{
    Error error;
    const std::optional<QVariant> list = propertyListFromData(data, &error);
    if (!list)
        throw InvalidArchive(error.localizedDescription());
    const QVariantMap archive = list->toMap();
    const QVariant objects = archive.value(QStringLiteral("$objects"));
    const QVariant top = archive.value(QStringLiteral("$top"));
    if (list->typeId() != QMetaType::QVariantMap || !archive.contains(QStringLiteral("$archiver"))
        || objects.typeId() != QMetaType::QVariantList || top.typeId() != QMetaType::QVariantMap)
        raise("This is not a keyed archive.");
    m_objects = objects.toList();
    m_current = top.toMap();
}

bool KeyedUnarchiver::containsValueForKey(const QString& key) const
{
    return m_current.contains(archive::escapedKey(key));
}

ArchiveValue KeyedUnarchiver::decodeObject(const QString& key)
{
    const QVariant plain = plainValue(key);
    const std::optional<quint32> uid = uidOf(plain);
    return uid ? decodeUid(*uid) : valueFromPlain(plain);
}

QRectF KeyedUnarchiver::decodeRect(const QString& key) { return archive::rectFromText(decodeString(key)); }

qint64 KeyedUnarchiver::decodeInt64(const QString& key) const
{
    return valueFromPlain(plainValue(key)).toInt64();
}

bool KeyedUnarchiver::decodeBool(const QString& key) const
{
    return valueFromPlain(plainValue(key)).toBool();
}

float KeyedUnarchiver::decodeFloat(const QString& key) const
{
    return valueFromPlain(plainValue(key)).toFloat();
}

double KeyedUnarchiver::decodeDouble(const QString& key) const
{
    return valueFromPlain(plainValue(key)).toDouble();
}

QByteArray KeyedUnarchiver::decodeBytes(const QString& key) const
{
    return valueFromPlain(plainValue(key)).toData();
}

QVariant KeyedUnarchiver::plainValue(const QString& key) const
{
    return m_current.value(archive::escapedKey(key));
}

void KeyedUnarchiver::addWeight(quint64 weight)
{
    m_weight += weight;
    if (m_weight > weightLimit)
        raise("The objects of the archive unfold without end.");
}

ArchiveValue KeyedUnarchiver::decodeUid(quint32 uid)
{
    if (uid == 0)
        return {};
    if (uid >= quint64(m_objects.size()))
        raise("The archive refers to an object that it does not hold.");
    const auto known = m_decoded.constFind(uid);
    if (known != m_decoded.constEnd()) {
        const ArchiveValue value = known->value;
        addWeight(known->weight);
        return value;
    }
    if (m_inProgress.contains(uid))
        return {};
    if (m_inProgress.size() >= archive::depthLimit)
        raise("The objects of the archive are nested too deeply.");

    const quint64 weightBefore = m_weight;
    addWeight(1);
    const QVariant object = m_objects[uid];
    ArchiveValue value;
    if (object.typeId() == QMetaType::QVariantMap) {
        m_inProgress.insert(uid);
        const auto end = qScopeGuard([this, uid] { m_inProgress.remove(uid); });
        value = decodeRecord(object.toMap());
    } else {
        value = valueFromPlain(object);
    }
    m_decoded.insert(uid, {value, m_weight - weightBefore});
    return value;
}

ArchiveValue KeyedUnarchiver::decodeRecord(const QVariantMap& record)
{
    const QStringList classNames = classNamesOf(record);
    const QVariantMap outer = std::exchange(m_current, record);
    const auto end = qScopeGuard([this, &outer] { m_current = outer; });
    ArchiveValue value;
    bool isKnown = false;
    for (const QString& className : classNames) {
        value = decodeKnown(className, classNames, &isKnown);
        if (isKnown)
            break;
    }
    if (!isKnown)
        value = decodeUnknown(record, classNames);
    return value;
}

ArchiveValue KeyedUnarchiver::decodeKnown(const QString& className, const QStringList& classNames,
                                          bool* isKnown)
{
    *isKnown = true;
    const auto maker = m_classes.constFind(className);
    if (maker != m_classes.constEnd())
        return ArchiveValue::object((*maker)(*this));
    if (className == QLatin1String("NSString"))
        return ArchiveValue::string(decodeString(QStringLiteral("NS.string")),
                                    mutabilityOf(classNames, "NSMutableString"));
    if (className == QLatin1String("NSData"))
        return ArchiveValue::data(decodeData(QStringLiteral("NS.data")),
                                  mutabilityOf(classNames, "NSMutableData"));
    if (className == QLatin1String("NSDate")) {
        const auto date = dateFromSecondsSince2001(decodeDouble(QStringLiteral("NS.time")));
        return date ? ArchiveValue::date(*date) : ArchiveValue();
    }
    if (className == QLatin1String("NSArray"))
        return ArchiveValue::array(decodeReferences(QStringLiteral("NS.objects")),
                                   mutabilityOf(classNames, "NSMutableArray"));
    if (className == QLatin1String("NSDictionary"))
        return decodeDictionary(mutabilityOf(classNames, "NSMutableDictionary"));
    *isKnown = false;
    return {};
}

ArchiveValue KeyedUnarchiver::decodeDictionary(Mutability mutability)
{
    const QList<ArchiveValue> keys = decodeReferences(QStringLiteral("NS.keys"));
    const QList<ArchiveValue> values = decodeReferences(QStringLiteral("NS.objects"));
    if (keys.size() != values.size())
        raise("A dictionary of the archive has not as many values as keys.");
    QList<ArchiveValue::Entry> entries;
    for (qsizetype position = 0; position < keys.size(); ++position)
        entries.append({keys[position], values[position]});
    return ArchiveValue::dictionary(entries, mutability);
}

ArchiveValue KeyedUnarchiver::decodeUnknown(const QVariantMap& record, const QStringList& classNames)
{
    using Form = ArchivedObject::Field::Form;
    ArchivedObject object{classNames, {}};
    for (auto entry = record.constBegin(); entry != record.constEnd(); ++entry) {
        if (entry.key() == QLatin1String("$class"))
            continue;
        ArchivedObject::Field field{archive::unescapedKey(entry.key()), Form::Plain, {}, {}};
        if (const std::optional<quint32> uid = uidOf(*entry)) {
            field.form = Form::Reference;
            field.references = {decodeUid(*uid)};
        } else if (isReferenceList(*entry)) {
            field.form = Form::References;
            field.references = decodeReferences(entry->toList());
        } else if (holdsReferences(*entry)) {
            raise("An object of the archive cannot be understood.");
        } else {
            field.plain = *entry;
        }
        object.fields.append(field);
    }
    return ArchiveValue::unknown(object);
}

QList<ArchiveValue> KeyedUnarchiver::decodeReferences(const QString& key)
{
    return decodeReferences(plainValue(key).toList());
}

QList<ArchiveValue> KeyedUnarchiver::decodeReferences(const QVariantList& references)
{
    QList<ArchiveValue> values;
    for (const QVariant& reference : references) {
        const std::optional<quint32> uid = uidOf(reference);
        if (!uid)
            raise("A list of the archive holds something other than references.");
        values.append(decodeUid(*uid));
    }
    return values;
}

QStringList KeyedUnarchiver::classNamesOf(const QVariantMap& record) const
{
    const std::optional<quint32> uid = uidOf(record.value(QStringLiteral("$class")));
    if (!uid || *uid >= quint64(m_objects.size()))
        raise("An object of the archive has no class.");
    const QVariantMap classRecord = m_objects[*uid].toMap();
    const QString name = classRecord.value(QStringLiteral("$classname")).toString();
    if (name.isEmpty())
        raise("A class of the archive has no name.");
    QStringList names;
    for (const QVariant& ancestor : classRecord.value(QStringLiteral("$classes")).toList())
        names += ancestor.toString();
    if (names.value(0) != name)
        names.prepend(name);
    return names;
}

} // namespace platform
