// SPDX-License-Identifier: MIT
#include "platform/attributedtext/ArchivedFields.h"

#include <cmath>

namespace platform {

void ArchivedFields::addPlain(const char* key, const QVariant& value)
{
    ArchivedObject::Field field;
    field.key = QLatin1String(key);
    field.plain = value;
    m_object.fields.append(field);
}

void ArchivedFields::addUnlessZero(const char* key, double value)
{
    if (value != 0)
        addPlain(key, value);
}

void ArchivedFields::addObject(const char* key, const ArchiveValue& object)
{
    ArchivedObject::Field field;
    field.key = QLatin1String(key);
    field.form = ArchivedObject::Field::Form::Reference;
    field.references = {object};
    m_object.fields.append(field);
}

const ArchivedObject* archivedObjectOfClass(const ArchiveValue& value, const char* className)
{
    const ArchivedObject* const object = value.toUnknown();
    return object && object->classNames.contains(QLatin1String(className)) ? object : nullptr;
}

double archivedNumber(const ArchivedObject& object, const char* key)
{
    const ArchivedObject::Field* const field = object.fieldForKey(QLatin1String(key));
    if (!field || field->form != ArchivedObject::Field::Form::Plain)
        return 0;
    return finiteNumber(field->plain.toDouble());
}

double finiteNumber(double number)
{
    constexpr double most = 1e6;
    return std::isfinite(number) ? std::clamp(number, -most, most) : 0;
}

} // namespace platform
