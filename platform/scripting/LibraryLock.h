// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/SystemCalls.h"

namespace platform {

// Holds a library for one import, so that no other takes its construction for one that was interrupted. The
// system gives it up when the program ends, in whatever way.
class LibraryLock {
public:
    // Waits for whoever holds it. On a file system without locks it holds nothing.
    explicit LibraryLock(const QString& directory);

private:
    system::Descriptor m_directory;
};

} // namespace platform
