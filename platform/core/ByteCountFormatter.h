// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

// A count of bytes as file sizes are shown: units of powers of 1000; no decimals below megabytes, one for
// those, two from gigabytes on, rounded to the nearest (halves to the even digit), no zeros at the end; 0 is
// "Zero KB". The decimal separator is the user's.
//
// The texts in the translation tables, each but the first with %@ for the number: "Zero KB", "%@ byte",
// "%@ bytes", "%@ KB", "%@ MB", "%@ GB", "%@ TB", "%@ PB", "%@ EB".
[[nodiscard]] QString byteCountString(qint64 bytes);

} // namespace platform
