// SPDX-License-Identifier: MIT
#include "platform/xml/XMLParserError.h"

namespace platform {

Error xmlParserError(XMLParserErrorCode code, const QString& localizedDescription)
{
    return {xmlParserErrorDomain, static_cast<qint64>(code), localizedDescription};
}

} // namespace platform
