// SPDX-License-Identifier: MIT
//
// What a KeyedUnarchiver makes of one object's record.
#include "platform/propertylist/ArchiveFormat.h"
#include "platform/propertylist/KeyedUnarchiver.h"
#include "platform/propertylist/PropertyListValue.h"

#include <QScopeGuard>

namespace platform {

namespace {

using Mutability = ArchiveValue::Mutability;

bool isContainer(const QVariant& value)
{
    return value.typeId() == QMetaType::QVariantMap || value.typeId() == QMetaType::QVariantList;
}

Mutability mutabilityOf(const QStringList& classNames, const char* mutableName)
{
    return classNames.contains(QLatin1String(mutableName)) ? Mutability::Mutable
                                                           : Mutability::Immutable;
}

bool isReferenceList(const QVariant& value)
{
    if (value.typeId() != QMetaType::QVariantList)
        return false;
    const QVariantList list = value.toList();
    return std::all_of(list.begin(), list.end(),
                       [](const QVariant& element) { return archive::uidOf(element); });
}

// References below the first level could not be kept when the object is archived again.
bool holdsReferences(const QVariant& value)
{
    QVariantList open{value};
    while (!open.isEmpty()) {
        const QVariant current = open.takeLast();
        if (archive::uidOf(current))
            return true;
        if (isContainer(current))
            open += current.typeId() == QMetaType::QVariantMap ? current.toMap().values()
                                                               : current.toList();
    }
    return false;
}

} // namespace

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

ArchiveValue KeyedUnarchiver::decodeUnknown(const QVariantMap& record,
                                            const QStringList& classNames)
{
    using Form = ArchivedObject::Field::Form;
    ArchivedObject object{classNames, {}};
    for (auto entry = record.constBegin(); entry != record.constEnd(); ++entry) {
        if (entry.key() == QLatin1String("$class"))
            continue;
        ArchivedObject::Field field{archive::unescapedKey(entry.key()), Form::Plain, {}, {}};
        if (const std::optional<quint32> uid = archive::uidOf(*entry)) {
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
        const std::optional<quint32> uid = archive::uidOf(reference);
        if (!uid)
            raise("A list of the archive holds something other than references.");
        values.append(decodeUid(*uid));
    }
    return values;
}

QStringList KeyedUnarchiver::classNamesOf(const QVariantMap& record) const
{
    const std::optional<quint32> uid = archive::uidOf(record.value(QStringLiteral("$class")));
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
