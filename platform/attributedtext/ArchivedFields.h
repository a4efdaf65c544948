// SPDX-License-Identifier: MIT
#pragma once

#include "platform/propertylist/ArchiveValue.h"

namespace platform {

// Puts an archived object of one of the platform's classes together, field by field.
class ArchivedFields {
public:
    // The class first, its ancestors after it.
    explicit ArchivedFields(const QStringList& classNames) { m_object.classNames = classNames; }

    // A number or data that lies in the object itself.
    void addPlain(const char* key, const QVariant& value);
    // Nothing for nought, which readers take for granted.
    void addUnlessZero(const char* key, double value);
    void addObject(const char* key, const ArchiveValue& object);

    [[nodiscard]] ArchiveValue value() const { return ArchiveValue::unknown(m_object); }

private:
    ArchivedObject m_object;
};

// The object when it is one of the class or of one that derives from it; null otherwise. It lives
// as long as the value.
[[nodiscard]] const ArchivedObject* archivedObjectOfClass(const ArchiveValue& value,
                                                          const char* className);

// The number that lies in the object under the key; nought where there is none that is finite.
[[nodiscard]] double archivedNumber(const ArchivedObject& object, const char* key);

// The number, nought for infinities and what is no number, cut at a million points.
[[nodiscard]] double finiteNumber(double number);

} // namespace platform
