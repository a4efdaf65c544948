// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// The user's folders, as absolute paths without a trailing separator. None but the temporary
// directory is created.
class StandardDirectories {
public:
    // $HOME/Library, where applications in a container keep their data.
    [[nodiscard]] static QString library();
    // XDG_DATA_HOME.
    [[nodiscard]] static QString applicationSupport();
    // XDG_CONFIG_HOME: the settings' property lists.
    [[nodiscard]] static QString preferences();
    [[nodiscard]] static QString documents();
    // XDG_CACHE_HOME.
    [[nodiscard]] static QString caches();

    // The user's private temporary directory: TMPDIR when it is a real folder of this user's that
    // nobody else can write, else a folder with mode 0700 in the cache directory. Empty when neither
    // can be had, so that no name in a shared folder is ever guessed at.
    [[nodiscard]] static QString temporary();
};

} // namespace platform
