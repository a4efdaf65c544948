// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <optional>

namespace platform {

// The errors of an import into a library have names of their own on the bus, so that they are the
// same errors on the other side. Names are without Quillery's prefix.

// "Failed" for an error of any other domain.
[[nodiscard]] QString quilleryErrorName(const Error& error);
// In QuilleryLibraryErrorDomain; none for any other name.
[[nodiscard]] std::optional<Error> quilleryErrorNamed(const QString& name, const QString& text);

} // namespace platform
