// SPDX-License-Identifier: MIT
#include "platform/propertylist/KeyedUnarchiver.h"

#include "platform/propertylist/ArchiveFormat.h"
#include "platform/propertylist/PropertyList.h"
#include "platform/propertylist/PropertyListError.h"

#include <QScopeGuard>

namespace platform {

namespace {

// Sharing that unfolds beyond this is meant to harm whoever walks the objects.
constexpr quint64 weightLimit = 8'000'000;

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

} // namespace

void KeyedUnarchiver::raise(const char* reason)
{
    throw InvalidArchive(propertyListError(PropertyListErrorCode::UnarchivingCorrupt, reason)
                             .localizedDescription());
}

InvalidArchive::InvalidArchive(const QString& message)
    : m_utf8(message.toUtf8())
{
}

ArchiveValue KeyedUnarchiver::unarchiveObjectWithData(QByteArrayView data,
                                                      const ArchivedClasses& classes)
{
    return KeyedUnarchiver(data, classes).decodeObject(QStringLiteral("root"));
}

std::optional<ArchiveValue> KeyedUnarchiver::unarchivedRootObject(QByteArrayView data,
                                                                  const ArchivedClasses& classes,
                                                                  Error* error)
{
    try {
        return unarchiveObjectWithData(data, classes);
    } catch (const InvalidArchive& exception) {
        setError(error,
                 propertyListError(PropertyListErrorCode::UnarchivingCorrupt, exception.message()));
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
    if (list->typeId() != QMetaType::QVariantMap ||
        !archive.contains(QStringLiteral("$archiver")) ||
        objects.typeId() != QMetaType::QVariantList || top.typeId() != QMetaType::QVariantMap)
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
    const std::optional<quint32> uid = archive::uidOf(plain);
    return uid ? decodeUid(*uid) : valueFromPlain(plain);
}

QRectF KeyedUnarchiver::decodeRect(const QString& key)
{
    return archive::rectFromText(decodeString(key));
}

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

} // namespace platform
