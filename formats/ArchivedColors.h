// SPDX-License-Identifier: MIT
#pragma once

#include "platform/attributedtext/Color.h"
#include "platform/propertylist/ArchiveValue.h"

#include <QString>

#include <optional>

// Colours as settings and old records hold them: archived.

// The colour in the settings under the key, in either of the platform's archive forms; none when
// there is no such setting or it holds no colour.
[[nodiscard]] std::optional<platform::Color> colorForDefaultsKey(const QString& key);

// The colour that an object of a keyed archive is; none for anything else.
[[nodiscard]] std::optional<platform::Color>
colorOfArchivedObject(const platform::ArchiveValue& object);
