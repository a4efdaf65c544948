// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/propertylist/ArchiveValue.h"
#include "platform/propertylist/PropertyListUid.h"

#include <QHash>
#include <QRectF>
#include <QVariant>

#include <optional>

namespace platform {

// Writes the keyed archive format of macOS, a binary property list. An object is archived once
// however often it is given; equal immutable strings, data and numbers are one object, too.
class KeyedArchiver {
public:
    // The archive of one object under the key "root". Fails when objects nest more than 256 deep or
    // a value has no place in a property list, such as an invalid date.
    [[nodiscard]] static std::optional<QByteArray>
    archivedDataWithRootObject(const ArchiveValue& root, Error* error = nullptr);
    [[nodiscard]] static std::optional<QByteArray>
    archivedDataWithRootObject(const std::shared_ptr<KeyedCoding>& root, Error* error = nullptr);

    // An archive whose top level the caller fills.
    KeyedArchiver();

    void encodeObject(const ArchiveValue& object, const QString& key);
    void encodeObject(const std::shared_ptr<KeyedCoding>& object, const QString& key);
    // Strings, data and dates as objects, referred to from the key. An invalid date is none.
    void encodeString(const QString& text, const QString& key);
    void encodeData(const QByteArray& bytes, const QString& key);
    void encodeDate(const QDateTime& date, const QString& key);
    // The text {{x, y}, {width, height}}.
    void encodeRect(const QRectF& rect, const QString& key);

    // Values that lie in the object itself.
    void encodeInt64(qint64 value, const QString& key);
    void encodeBool(bool value, const QString& key);
    // A 32-bit real.
    void encodeFloat(float value, const QString& key);
    // A 64-bit real.
    void encodeDouble(double value, const QString& key);
    void encodeBytes(const QByteArray& bytes, const QString& key);

    // The whole archive; once, after the last value.
    [[nodiscard]] std::optional<QByteArray> finishEncoding(Error* error = nullptr);

private:
    void setPlain(const QString& key, const QVariant& value);
    PropertyListUid add(const ArchiveValue& value);
    PropertyListUid addPlain(const QVariant& value);
    PropertyListUid addClass(const QStringList& classNames);
    QVariantList addAll(const QList<ArchiveValue>& values);
    void fill(const ArchiveValue& value);
    void fillUnknown(const ArchivedObject& object);
    void setClass(const QStringList& classNames);

    QVariantList m_objects;
    QVariantMap m_top;
    // The object that is being filled; the top level before and after.
    QVariantMap* m_current = &m_top;
    int m_depth = 0;
    bool m_tooDeep = false;
    QHash<const void*, PropertyListUid> m_identities;
    // Keeps what m_identities points at from being freed and its address used again.
    QList<ArchiveValue> m_archived;
    QHash<QByteArray, PropertyListUid> m_plain;
    QHash<QString, PropertyListUid> m_classes;
};

} // namespace platform
