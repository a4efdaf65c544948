// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/propertylist/ArchiveValue.h"

#include <QByteArrayView>
#include <QHash>
#include <QRectF>
#include <QSet>
#include <QVariant>

#include <exception>
#include <functional>
#include <optional>

namespace platform {

// Raised for bytes that are not a keyed archive, or one that is damaged.
class InvalidArchive : public std::exception {
public:
    explicit InvalidArchive(const QString& message);

    [[nodiscard]] const char* what() const noexcept override { return m_utf8.constData(); }
    [[nodiscard]] QString message() const { return QString::fromUtf8(m_utf8); }

private:
    QByteArray m_utf8;
};

class KeyedUnarchiver;

// How the objects of a program's own classes are made: from an unarchiver that answers for the keys
// of the object in hand. A maker that returns none leaves null in the object's place.
using ArchivedClasses =
    QHash<QString, std::function<std::shared_ptr<KeyedCoding>(KeyedUnarchiver&)>>;

// Reads the keyed archive format of macOS, binary or XML.
//
// An object is decoded once; whoever refers to it gets the same one. The first name in its chain of
// classes that is known decides: given classes come before strings, data, dates, arrays and
// dictionaries. An object of an unknown class becomes ArchiveValue::Kind::Unknown. A reference from
// within an object to the object itself is null, so no cycle is ever built.
//
// Keys that are missing, and values of another type, decode to zero, empty and null. Objects that
// nest more than 256 deep, or whose shared parts would unfold to more than eight million, are
// damage.
class KeyedUnarchiver {
public:
    // The object under "root". Throws InvalidArchive.
    [[nodiscard]] static ArchiveValue unarchiveObjectWithData(QByteArrayView data,
                                                              const ArchivedClasses& classes = {});
    // The same, where damage is nothing out of the ordinary.
    [[nodiscard]] static std::optional<ArchiveValue>
    unarchivedRootObject(QByteArrayView data, const ArchivedClasses& classes = {},
                         Error* error = nullptr);

    // Throws InvalidArchive, as do the decode operations below where an object's record is damaged.
    explicit KeyedUnarchiver(QByteArrayView data, ArchivedClasses classes = {});

    [[nodiscard]] bool containsValueForKey(const QString& key) const;
    [[nodiscard]] ArchiveValue decodeObject(const QString& key);
    template <typename Class>
    [[nodiscard]] std::shared_ptr<Class> decodeObjectAs(const QString& key)
    {
        return decodeObject(key).objectAs<Class>();
    }
    [[nodiscard]] QString decodeString(const QString& key) { return decodeObject(key).toText(); }
    [[nodiscard]] QByteArray decodeData(const QString& key) { return decodeObject(key).toData(); }
    [[nodiscard]] QDateTime decodeDate(const QString& key) { return decodeObject(key).toDate(); }
    // From the text {{x, y}, {width, height}}.
    [[nodiscard]] QRectF decodeRect(const QString& key);
    [[nodiscard]] qint64 decodeInt64(const QString& key) const;
    [[nodiscard]] bool decodeBool(const QString& key) const;
    [[nodiscard]] float decodeFloat(const QString& key) const;
    [[nodiscard]] double decodeDouble(const QString& key) const;
    [[nodiscard]] QByteArray decodeBytes(const QString& key) const;

private:
    struct Decoded {
        ArchiveValue value;
        // How many objects it unfolds to.
        quint64 weight = 1;
    };

    [[noreturn]] static void raise(const char* reason);
    ArchiveValue decodeUid(quint32 uid);
    ArchiveValue decodeRecord(const QVariantMap& record);
    ArchiveValue decodeKnown(const QString& className, const QStringList& classNames,
                             bool* isKnown);
    ArchiveValue decodeUnknown(const QVariantMap& record, const QStringList& classNames);
    ArchiveValue decodeDictionary(ArchiveValue::Mutability mutability);
    QList<ArchiveValue> decodeReferences(const QString& key);
    QList<ArchiveValue> decodeReferences(const QVariantList& references);
    [[nodiscard]] QStringList classNamesOf(const QVariantMap& record) const;
    [[nodiscard]] QVariant plainValue(const QString& key) const;
    void addWeight(quint64 weight);

    ArchivedClasses m_classes;
    QVariantList m_objects;
    QVariantMap m_current;
    QHash<quint32, Decoded> m_decoded;
    QSet<quint32> m_inProgress;
    quint64 m_weight = 0;
};

} // namespace platform
