// SPDX-License-Identifier: MIT
#include "webcapture/WebConversionErrors.h"

#include "platform/core/LocalizedStrings.h"
#include "platform/core/StringFormat.h"

platform::Error webConversionErrorForStatus(int statusCode, const QString& statusText)
{
    QString text = statusText;
    if (text.isEmpty())
        text = platform::stringWithFormat(platform::localizedString("Code: %ld"),
                                          {QString::number(statusCode)});
    return {evernoteWebConversionErrorDomain, EvernoteWebConversionErrorHttpStatus, text};
}
