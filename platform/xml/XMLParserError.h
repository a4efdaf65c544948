// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

namespace platform {

// The domain of every error of this folder. Its codes are the XML library's, with one that is not.
inline const QString xmlParserErrorDomain = QStringLiteral("NSXMLParserErrorDomain");

enum class XMLParserErrorCode {
    InternalError = 1,
    DocumentEmpty = 4,
    UnsupportedEncoding = 32,
    // Too deep, too many attributes and the like; the library's number for its own limits.
    LimitExceeded = 1000,
    InputFailure = 1549,
    DelegateAborted = 512,
};

[[nodiscard]] Error xmlParserError(XMLParserErrorCode code, const QString& localizedDescription);

} // namespace platform
