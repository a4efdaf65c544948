// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertylist/KeyedCoding.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>

#include <memory>
#include <utility>

namespace platform {

struct ArchivedObject;

// An object of a keyed archive, or none. A handle: copies are the same object, which an archive
// holds once. Objects never change after they are made.
class ArchiveValue {
public:
    enum class Kind {
        Null,
        String,
        Bool,
        Integer,
        Float,
        Double,
        Data,
        Date,
        Array,
        Dictionary,
        Object,
        Unknown
    };
    enum class Mutability { Immutable, Mutable };

    using Entry = std::pair<ArchiveValue, ArchiveValue>;

    ArchiveValue() = default;
    [[nodiscard]] static ArchiveValue string(const QString& text,
                                             Mutability = Mutability::Immutable);
    [[nodiscard]] static ArchiveValue boolean(bool value);
    [[nodiscard]] static ArchiveValue integer(qint64 value);
    // Archived as a 32-bit and as a 64-bit real.
    [[nodiscard]] static ArchiveValue floating(float value);
    [[nodiscard]] static ArchiveValue floating(double value);
    [[nodiscard]] static ArchiveValue data(const QByteArray& bytes,
                                           Mutability = Mutability::Immutable);
    [[nodiscard]] static ArchiveValue date(const QDateTime& date);
    [[nodiscard]] static ArchiveValue array(const QList<ArchiveValue>& elements,
                                            Mutability = Mutability::Immutable);
    [[nodiscard]] static ArchiveValue dictionary(const QList<Entry>& entries,
                                                 Mutability = Mutability::Immutable);
    // An object of a class of the program's own; null for none.
    [[nodiscard]] static ArchiveValue object(const std::shared_ptr<KeyedCoding>& object);
    // An object whose class nobody here knows.
    [[nodiscard]] static ArchiveValue unknown(const ArchivedObject& object);

    [[nodiscard]] Kind kind() const;
    [[nodiscard]] bool isNull() const { return !m_node; }
    // For strings, data, arrays and dictionaries.
    [[nodiscard]] bool isMutable() const;

    // Each gives an empty or zero value when the object is of another kind; numbers and booleans
    // convert into each other, a fraction being cut off and what is out of range being clamped.
    [[nodiscard]] QString toText() const;
    [[nodiscard]] bool toBool() const;
    [[nodiscard]] qint64 toInt64() const;
    [[nodiscard]] float toFloat() const;
    [[nodiscard]] double toDouble() const;
    [[nodiscard]] QByteArray toData() const;
    [[nodiscard]] QDateTime toDate() const;
    [[nodiscard]] QList<ArchiveValue> elements() const;
    [[nodiscard]] QList<Entry> entries() const;
    // The dictionary's value under a text key; null when there is none.
    [[nodiscard]] ArchiveValue valueForKey(const QString& key) const;
    [[nodiscard]] std::shared_ptr<KeyedCoding> toObject() const;
    template <typename Class>
    [[nodiscard]] std::shared_ptr<Class> objectAs() const
    {
        return std::dynamic_pointer_cast<Class>(toObject());
    }
    // None unless the kind is Unknown; lives as long as this value does.
    [[nodiscard]] const ArchivedObject* toUnknown() const;

    // What makes two values the same object; none for null.
    [[nodiscard]] const void* identity() const;

    // Equal contents, kinds and mutability; objects of the program's own classes by identity.
    friend bool operator==(const ArchiveValue& left, const ArchiveValue& right);

private:
    struct Node;

    explicit ArchiveValue(Node node);

    std::shared_ptr<const Node> m_node;
};

// An object of an unknown class, kept so that it can be archived again as it was.
struct ArchivedObject {
    struct Field {
        enum class Form { Plain, Reference, References };

        QString key;
        Form form = Form::Plain;
        // A value that lies in the object itself; for the form Plain.
        QVariant plain;
        // One value for the form Reference, any number for References.
        QList<ArchiveValue> references;

        friend bool operator==(const Field& left, const Field& right);
    };

    // The class first, its ancestors after it.
    QStringList classNames;
    QList<Field> fields;

    [[nodiscard]] const Field* fieldForKey(const QString& key) const;
    // The object under a key; null when there is none or another form of field.
    [[nodiscard]] ArchiveValue referenceForKey(const QString& key) const;

    friend bool operator==(const ArchivedObject& left, const ArchivedObject& right);
};

} // namespace platform
