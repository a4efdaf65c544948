// SPDX-License-Identifier: MIT
#include "platform/dbus/ScriptingError.h"

namespace platform {

Error scriptingError(ScriptingErrorCode code, const QString& text)
{
    return {QString::fromLatin1(scriptingErrorDomain), static_cast<qint64>(code), text};
}

} // namespace platform
