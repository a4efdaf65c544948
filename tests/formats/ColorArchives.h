// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace test {

// Calibrated red 1, green 0.5, blue 0, alpha 1, as settings files hold it.
[[nodiscard]] QByteArray legacyColorArchive();
[[nodiscard]] QByteArray keyedColorArchive();

} // namespace test
