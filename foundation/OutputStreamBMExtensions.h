// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/OutputStream.h"

#include <QString>

// Writes one line of a run's log: the current date in its standard description, a blank, the text, a line
// feed, in UTF-8. Returns what the stream returned: bytes written, or -1; 0 without a stream.
//
// At most as many bytes are written as the line has UTF-16 code units, so a line that is not plain ASCII
// loses its end, line feed included. Readers of the log count on it.
qint64 writeLogLine(platform::OutputStream* stream, const QString& text);
