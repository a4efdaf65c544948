// SPDX-License-Identifier: MIT
#include "foundation/StringProgressQLExtensions.h"

#include "platform/core/ByteCountFormatter.h"
#include "platform/core/LocalizedStrings.h"
#include "platform/core/StringFormat.h"

QString stringForBytesCompleted(qint64 bytesCompleted, qint64 totalBytes)
{
    return platform::stringWithFormat(platform::localizedString("%1$@ of %2$@"),
                                      {platform::byteCountString(bytesCompleted), platform::byteCountString(totalBytes)});
}

QString stringForDataRate(qint64 bytesPerSecond)
{
    return platform::stringWithFormat(platform::localizedString("%@/sec"),
                                      {platform::byteCountString(bytesPerSecond)});
}
