// SPDX-License-Identifier: MIT
#include "platform/propertylist/PropertyListError.h"

#include "platform/core/LocalizedStrings.h"

namespace platform {

Error propertyListError(PropertyListErrorCode code, const QString& reason)
{
    return {QString::fromLatin1(propertyListErrorDomain), static_cast<qint64>(code), reason};
}

Error propertyListError(PropertyListErrorCode code, const char* reason)
{
    return propertyListError(code, localizedString(reason));
}

} // namespace platform
