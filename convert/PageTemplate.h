// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

#include <optional>

// The application's page template, filled with a title and a body exactly as they are. None with
// the read error when the template cannot be read.
[[nodiscard]] std::optional<QString> pageFromTemplate(const QString& title, const QString& body,
                                                      platform::Error* error = nullptr);
