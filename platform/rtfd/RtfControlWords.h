// SPDX-License-Identifier: MIT
#pragma once

#include "platform/rtfd/RtfOutput.h"

#include <QByteArrayView>

namespace platform {

// The word with its number, and nothing after it: \fs24.
void appendControl(RtfOutput& out, QByteArrayView word, qint64 value);

// Points as twips, the twentieths of a point in which rich text gives lengths. What no length can
// be (not a number, beyond 31 bits) is brought to the nearest that can.
[[nodiscard]] qint64 twipsFromPoints(double points);
[[nodiscard]] double pointsFromTwips(qint64 twips);

} // namespace platform
