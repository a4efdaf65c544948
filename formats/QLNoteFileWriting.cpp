// SPDX-License-Identifier: MIT
//
// QLNoteFile on its way to disk.
#include "formats/QLNoteFile.h"

#include "platform/core/SystemLog.h"
#include "platform/files/FileManager.h"
#include "platform/files/ResourceValues.h"

using platform::Error;
using platform::FileWrapper;
using platform::ResourceValues;

namespace {

// What is to hold for the file once it has been written.
ResourceValues valuesToApply(const QString& path)
{
    ResourceValues values;
    if (!platform::fileExistsAtPath(path)) {
        values.hasHiddenExtension = true;
    } else if (const std::optional<ResourceValues> existing = platform::resourceValues(path)) {
        values.creationDate = existing->creationDate;
        values.hasHiddenExtension = existing->hasHiddenExtension;
    }
    return values;
}

} // namespace

bool QLNoteFile::writeFileWrapper(const FileWrapper::Pointer& wrapper, const QString& toFile,
                                  Error* error)
{
    Error failure;
    const ResourceValues values = valuesToApply(toFile);
    if (!addRecord(*wrapper, &failure) ||
        !wrapper->writeTo(toFile, FileWrapper::WriteMode::Atomic, &failure)) {
        platform::systemLog(
            QStringLiteral("Error writing note to %1: %2").arg(toFile, failure.description()));
        platform::setError(error, failure);
        return false;
    }
    // A file system that keeps no such values still has the note.
    static_cast<void>(platform::setResourceValues(toFile, values));
    return true;
}

bool QLNoteFile::writeToFile(const QString& path, Error* error)
{
    const FileWrapper::Pointer wrapper = fileWrapper(error);
    return wrapper && writeFileWrapper(wrapper, path, error);
}
