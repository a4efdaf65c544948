// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Texts for progress displays, translated; counts in bytes, written in decimal units ("1.2 MB").

// "1.2 MB of 3 GB", in the translation table as "%1$@ of %2$@".
[[nodiscard]] QString stringForBytesCompleted(qint64 bytesCompleted, qint64 totalBytes);

// "1.2 MB/sec", in the translation table as "%@/sec".
[[nodiscard]] QString stringForDataRate(qint64 bytesPerSecond);
