// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

namespace platform {

// What the platform keeps about a file beside its bytes. An absent value is not read or not set.
//
// Linux keeps no creation date that can be set, no hidden extension and no tags, so they live in extended
// attributes, in the forms that the platform uses (under "user.") and in those of the desktop: tags in
// user.xdg.tags, comments in user.xdg.comment.
struct ResourceValues {
    std::optional<QDateTime> creationDate;
    std::optional<QDateTime> contentModificationDate;
    std::optional<bool> hasHiddenExtension;
    std::optional<QStringList> tagNames;
    std::optional<QString> comment;
    std::optional<QString> originUrl;
};

// Sets every value given. False with an error when one of them could not be set; the others are set all
// the same.
[[nodiscard]] bool setResourceValues(const QString& path, const ResourceValues& values, Error* error = nullptr);

// Every value that the file has. creationDate: the one that was set, else the file system's own.
[[nodiscard]] std::optional<ResourceValues> resourceValues(const QString& path, Error* error = nullptr);

} // namespace platform
