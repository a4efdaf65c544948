// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QByteArray>
#include <QString>

#include <optional>

// The file operations that report what went wrong. Errors are in the domain "NSCocoaErrorDomain"
// with the platform's codes, and name the path and the system's reason; the system's own error
// (domain "NSPOSIXErrorDomain", code errno) lies under them.
namespace platform {

extern const QString cocoaErrorDomain;
extern const QString posixErrorDomain;

enum CocoaErrorCode : int {
    FileNoSuchFileError = 4,
    FileReadUnknownError = 256,
    FileReadNoPermissionError = 257,
    FileReadInvalidFileNameError = 258,
    FileReadCorruptFileError = 259,
    FileReadNoSuchFileError = 260,
    FileReadInapplicableStringEncodingError = 261,
    FileWriteUnknownError = 512,
    FileWriteNoPermissionError = 513,
    FileWriteInvalidFileNameError = 514,
    FileWriteFileExistsError = 516,
    FileWriteOutOfSpaceError = 640,
    FileWriteVolumeReadOnlyError = 642
};

enum class FileAccess { Read, Write };
// The error for a failed system call on a path.
[[nodiscard]] Error fileError(FileAccess access, const QString& path, int systemError);

// Something exists at the path, be it a link that leads nowhere.
[[nodiscard]] bool fileExistsAtPath(const QString& path);

enum class IntermediateFolders { Create, Require };
// With Require an existing folder is an error, as is a missing parent. With Create an existing
// folder is success.
[[nodiscard]] bool createDirectory(const QString& path, IntermediateFolders intermediates,
                                   Error* error = nullptr);

// Removes a file, a link (not what it leads to) or a folder with everything in it, however deep. On
// failure what was removed until then is gone.
[[nodiscard]] bool removeItem(const QString& path, Error* error = nullptr);

// Renames, or copies and removes where the target is on another file system; modes, dates and
// extended attributes go along. The target must not exist. Interrupted at any point, the item is
// whole under one of the two names or both.
[[nodiscard]] bool moveItem(const QString& from, const QString& to, Error* error = nullptr);

// Reads a regular file; folders, pipes and devices are an error.
[[nodiscard]] std::optional<QByteArray> readFile(const QString& path, Error* error = nullptr);
// Reads a regular file as UTF-8 text; bytes that are none are an error.
[[nodiscard]] std::optional<QString> readTextFile(const QString& path, Error* error = nullptr);

enum class WriteOption { Plain, Atomic };
// Plain: creates or overwrites in place; a file that could not be written whole is removed again.
// Atomic: written beside it under a private name and moved into place.
[[nodiscard]] bool writeFile(const QString& path, QByteArrayView bytes, WriteOption option,
                             Error* error = nullptr);

// folder + "/" + name, when the name is a plain file name; none when it would leave the folder or
// means no file: empty, ".", "..", or with a "/" or a NUL in it.
[[nodiscard]] std::optional<QString> pathWithin(const QString& folder, const QString& name,
                                                Error* error = nullptr);

// The longest name that the file system takes, in bytes of UTF-8.
inline constexpr int maximumFileNameBytes = 255;

} // namespace platform
