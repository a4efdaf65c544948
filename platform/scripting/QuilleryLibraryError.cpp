// SPDX-License-Identifier: MIT
#include "platform/scripting/QuilleryLibraryError.h"

namespace platform {

Error quilleryLibraryError(QuilleryLibraryErrorCode code, const QString& text)
{
    return Error(QString::fromLatin1(quilleryLibraryErrorDomain), static_cast<qint64>(code), text);
}

Error quilleryLibraryError(QuilleryLibraryErrorCode code, const QString& text, const Error& cause)
{
    return quilleryLibraryError(code, text).withUnderlyingError(cause);
}

} // namespace platform
