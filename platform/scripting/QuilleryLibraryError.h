// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

namespace platform {

// The errors of imports into a library that is a plain folder.
inline constexpr const char* quilleryLibraryErrorDomain = "QuilleryLibraryErrorDomain";

enum class QuilleryLibraryErrorCode : qint64 {
    NotAManifest = 1,       // a path was given that does not lead to a manifest
    UnreadableManifest = 2, // no property list, or none that can be read
    MalformedManifest = 3,  // a property list, but its values have the wrong types or contradict each other
    UnsafeManifest = 4,     // names paths outside the files folder
    UnsupportedOption = 5,  // a destination, rating, label … that a plain folder cannot keep
    LibraryNotWritable = 6, // nothing was touched
    ItemsNotTaken = 7,      // the others were; see QuilleryLibraryFolder::lastFailedItems()
    UnfinishedImport = 8,   // every item is whole; the next import takes in what waits in the library
    IncompleteManifest = 9  // not there, or not to its end
};

[[nodiscard]] Error quilleryLibraryError(QuilleryLibraryErrorCode code, const QString& text);
[[nodiscard]] Error quilleryLibraryError(QuilleryLibraryErrorCode code, const QString& text,
                                         const Error& cause);

} // namespace platform
