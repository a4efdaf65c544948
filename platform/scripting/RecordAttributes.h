// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/ResourceValues.h"

#include <QVariantMap>

namespace platform {

// What a record of the manifest says of its file's dates, tags, hidden extension, and origin or comment. An
// item's "comments" that are a web address are its origin; any others are a comment. Values of the wrong
// type are none.
[[nodiscard]] ResourceValues resourceValuesOfRecord(const QVariantMap& record);

} // namespace platform
