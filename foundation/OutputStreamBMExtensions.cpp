// SPDX-License-Identifier: MIT
#include "foundation/OutputStreamBMExtensions.h"

#include "platform/core/DateFormatter.h"

qint64 writeLogLine(platform::OutputStream* stream, const QString& text)
{
    if (!stream)
        return 0;
    const QString line = platform::standardDateDescription(QDateTime::currentDateTimeUtc()) + QLatin1Char(' ') + text
                         + QLatin1Char('\n');
    return stream->write(line.toUtf8(), line.size());
}
