// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

inline const QString evernoteWebConversionErrorDomain =
    QStringLiteral("EvernoteWebConversionErrorDomain");

enum EvernoteWebConversionErrorCode : int {
    // The server answered the page's own request with a status from 400 to 599.
    EvernoteWebConversionErrorHttpStatus = 10002
};

// statusText: what the status means, for users; where it is empty the error's text names the code.
[[nodiscard]] platform::Error webConversionErrorForStatus(int statusCode,
                                                          const QString& statusText);
