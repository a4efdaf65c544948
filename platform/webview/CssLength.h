// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>

namespace platform {

// A CSS length in pixels, for the view's size and the usual size of text; sums in calc() included. None
// where it is no length.
[[nodiscard]] std::optional<double> cssLength(QStringView text);

} // namespace platform
