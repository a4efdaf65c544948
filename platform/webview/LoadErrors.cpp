// SPDX-License-Identifier: MIT
#include "platform/webview/LoadErrors.h"

#include "platform/core/LocalizedStrings.h"

namespace platform {

const QString urlErrorDomain = QStringLiteral("NSURLErrorDomain");
const QString webViewErrorDomain = QStringLiteral("WebKitErrorDomain");

namespace {

const char* textForCode(UrlErrorCode code)
{
    switch (code) {
    case UrlErrorCancelled:
        return "The load was cancelled.";
    case UrlErrorBadUrl:
        return "The address is not valid.";
    case UrlErrorTimedOut:
        return "The request timed out.";
    case UrlErrorUnsupportedUrl:
        return "The address is of a kind that cannot be loaded.";
    case UrlErrorCannotFindHost:
        return "A server with the specified host name could not be found.";
    case UrlErrorCannotConnectToHost:
        return "Could not connect to the server.";
    case UrlErrorNetworkConnectionLost:
        return "The network connection was lost.";
    case UrlErrorTooManyRedirects:
        return "There were too many redirects.";
    case UrlErrorResourceUnavailable:
        return "The page has more resources than are loaded.";
    case UrlErrorNotConnectedToInternet:
        return "The Internet connection appears to be offline.";
    case UrlErrorRedirectToNonExistentLocation:
        return "The server redirected to an address that cannot be loaded.";
    case UrlErrorBadServerResponse:
        return "The server gave a response that was not understood.";
    case UrlErrorZeroByteResource:
        return "The server sent no document.";
    case UrlErrorCannotDecodeRawData:
        return "The response could not be decoded.";
    case UrlErrorFileDoesNotExist:
        return "The file does not exist.";
    case UrlErrorFileIsDirectory:
        return "The file is a folder.";
    case UrlErrorNoPermissionsToReadFile:
        return "There is no permission to read the file.";
    case UrlErrorDataLengthExceedsMaximum:
        return "The resource is too large.";
    case UrlErrorSecureConnectionFailed:
        return "A secure connection to the server could not be made.";
    case UrlErrorUnknown:
        break;
    }
    return "The load failed.";
}

UrlErrorCode codeForTransfer(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return UrlErrorCannotConnectToHost;
    case QNetworkReply::RemoteHostClosedError:
    // Nobody here: what we cancel reports nothing.
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
        return UrlErrorNetworkConnectionLost;
    case QNetworkReply::HostNotFoundError:
        return UrlErrorCannotFindHost;
    case QNetworkReply::TimeoutError:
        return UrlErrorTimedOut;
    case QNetworkReply::SslHandshakeFailedError:
        return UrlErrorSecureConnectionFailed;
    case QNetworkReply::UnknownNetworkError:
        return UrlErrorNotConnectedToInternet;
    case QNetworkReply::ProtocolUnknownError:
        return UrlErrorUnsupportedUrl;
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolInvalidOperationError:
        return UrlErrorBadServerResponse;
    case QNetworkReply::UnknownContentError:
    case QNetworkReply::ContentAccessDenied:
        return UrlErrorCannotDecodeRawData;
    default:
        return UrlErrorUnknown;
    }
}

} // namespace

Error urlError(UrlErrorCode code)
{
    return Error(urlErrorDomain, code, localizedString(textForCode(code)));
}

Error transferError(QNetworkReply::NetworkError error)
{
    return urlError(codeForTransfer(error));
}

} // namespace platform
