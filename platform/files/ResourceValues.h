// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

namespace platform {

// What the platform keeps about a file or folder beside its bytes. An absent value is not read or
// not set.
//
// Linux keeps no creation date that can be set, no hidden extension and no tags, so they live in
// extended attributes, in the forms that macOS uses (under "user.", where Linux keeps them) and in
// those of the desktop:
//
//   creation date     user.com.apple.metadata:kMDItemFSCreationDate     binary property list, date
//   modification date the file system's own
//   hidden extension  user.com.apple.FinderInfo                         32 bytes; 0x0010 of the
//   flags tags              user.com.apple.metadata:_kMDItemUserTags          binary property list,
//   "Name\n0"
//                     user.xdg.tags                                     joined with ","
//   comment           user.com.apple.metadata:kMDItemFinderComment      binary property list,
//   string
//                     user.xdg.comment                                  UTF-8
//   origin URL        user.com.apple.metadata:kMDItemWhereFroms         binary property list,
//   strings
//                     user.xdg.origin.url                               UTF-8
struct ResourceValues {
    std::optional<QDateTime> creationDate;
    std::optional<QDateTime> contentModificationDate;
    std::optional<bool> hasHiddenExtension;
    // An empty list, comment or URL removes what the file has.
    std::optional<QStringList> tagNames;
    std::optional<QString> comment;
    std::optional<QString> originUrl;
};

// Sets every value given. False with an error when one of them could not be set; the others are set
// all the same. Links are not followed and have no values.
[[nodiscard]] bool setResourceValues(const QString& path, const ResourceValues& values,
                                     Error* error = nullptr);

// Every value that the file has, dates in UTC. creationDate: the one that was set, else the file
// system's own. Where the two forms of a value differ, the one that macOS uses counts.
[[nodiscard]] std::optional<ResourceValues> resourceValues(const QString& path,
                                                           Error* error = nullptr);

} // namespace platform
