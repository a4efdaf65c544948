// SPDX-License-Identifier: MIT
#include "platform/files/FileManager.h"

#include "platform/core/LocalizedStrings.h"

#include <cerrno>

namespace platform {

const QString cocoaErrorDomain = QStringLiteral("NSCocoaErrorDomain");
const QString posixErrorDomain = QStringLiteral("NSPOSIXErrorDomain");

namespace {

CocoaErrorCode readErrorCode(int systemError)
{
    switch (systemError) {
    case ENOENT:
        return FileReadNoSuchFileError;
    case EACCES:
    case EPERM:
        return FileReadNoPermissionError;
    case EINVAL:
    case EILSEQ:
    case ENAMETOOLONG:
        return FileReadInvalidFileNameError;
    default:
        return FileReadUnknownError;
    }
}

CocoaErrorCode writeErrorCode(int systemError)
{
    switch (systemError) {
    case ENOENT:
        return FileNoSuchFileError;
    case EACCES:
    case EPERM:
        return FileWriteNoPermissionError;
    case EINVAL:
    case EILSEQ:
    case ENAMETOOLONG:
        return FileWriteInvalidFileNameError;
    case EEXIST:
    case ENOTEMPTY:
        return FileWriteFileExistsError;
    case ENOSPC:
    case EDQUOT:
        return FileWriteOutOfSpaceError;
    case EROFS:
        return FileWriteVolumeReadOnlyError;
    default:
        return FileWriteUnknownError;
    }
}

} // namespace

Error fileError(FileAccess access, const QString& path, int systemError)
{
    const bool isRead = access == FileAccess::Read;
    const QString reason = qt_error_string(systemError);
    const QString form = isRead ? localizedString("\u201c%1\u201d could not be read: %2.")
                                : localizedString("\u201c%1\u201d could not be written: %2.");
    const CocoaErrorCode code = isRead ? readErrorCode(systemError) : writeErrorCode(systemError);
    return Error(cocoaErrorDomain, code, form.arg(path, reason))
        .withUnderlyingError(Error(posixErrorDomain, systemError, reason));
}

} // namespace platform
