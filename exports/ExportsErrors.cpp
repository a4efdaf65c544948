// SPDX-License-Identifier: MIT
#include "exports/ExportsErrors.h"

#include "platform/core/LocalizedStrings.h"

platform::Error fileChangedError(const QString& path)
{
    return {evernoteExportsErrorDomain, EvernoteExportsErrorFileChanged,
            platform::localizedString("The file “%1” changed while it was read.").arg(path)};
}

platform::Error exportNotWrittenError(const QString& path, const QString& reason)
{
    return {
        evernoteExportsErrorDomain, EvernoteExportsErrorNotWritten,
        platform::localizedString("The export “%1” could not be written: %2").arg(path, reason)};
}
