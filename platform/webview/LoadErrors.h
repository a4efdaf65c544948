// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QNetworkReply>

namespace platform {

// "NSURLErrorDomain": a transfer failed. The codes are the platform's.
extern const QString urlErrorDomain;
// "WebKitErrorDomain": the view would not show what came.
extern const QString webViewErrorDomain;

enum UrlErrorCode : int {
    UrlErrorUnknown = -1,
    UrlErrorCancelled = -999,
    UrlErrorBadUrl = -1000,
    UrlErrorTimedOut = -1001,
    UrlErrorUnsupportedUrl = -1002,
    UrlErrorCannotFindHost = -1003,
    UrlErrorCannotConnectToHost = -1004,
    UrlErrorNetworkConnectionLost = -1005,
    UrlErrorTooManyRedirects = -1007,
    UrlErrorResourceUnavailable = -1008,
    UrlErrorNotConnectedToInternet = -1009,
    UrlErrorRedirectToNonExistentLocation = -1010,
    UrlErrorBadServerResponse = -1011,
    UrlErrorZeroByteResource = -1014,
    UrlErrorCannotDecodeRawData = -1015,
    UrlErrorFileDoesNotExist = -1100,
    UrlErrorFileIsDirectory = -1101,
    UrlErrorNoPermissionsToReadFile = -1102,
    UrlErrorDataLengthExceedsMaximum = -1103,
    UrlErrorSecureConnectionFailed = -1200
};

enum WebViewErrorCode : int { WebViewErrorCannotShowMimeType = 100, WebViewErrorFrameLoadInterrupted = 102 };

// The error with the user's text for the code.
[[nodiscard]] Error urlError(UrlErrorCode code);

// The error of a transfer that ended otherwise than with a whole response.
[[nodiscard]] Error transferError(QNetworkReply::NetworkError error);

} // namespace platform
