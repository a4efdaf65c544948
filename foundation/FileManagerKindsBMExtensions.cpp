// SPDX-License-Identifier: MIT
#include "foundation/FileManagerKindsBMExtensions.h"

#include "platform/types/TypeCodes.h"
#include "platform/types/UniformTypes.h"

QString kindStringForExtension(const QString& extension)
{
    QString typeCode = extension;
    const bool isTypeCode = extension.contains(u'\'');
    const QString identifier = isTypeCode ? platform::preferredIdentifierForTypeCode(typeCode.remove(u'\''))
                                          : platform::preferredIdentifierForExtension(extension);
    const QString description = identifier.isEmpty() ? QString() : platform::typeDescription(identifier);
    return description.isEmpty() ? extension : description;
}
