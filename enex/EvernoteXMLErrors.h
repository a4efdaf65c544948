// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The error domains of ENEX reading and their codes.

inline const QString evernoteXMLResourceErrorDomain = QStringLiteral("EvernoteXMLResourceErrorDomain");

enum EvernoteXMLResourceErrorCode : int {
    EvernoteXMLResourceErrorNoData = 1001,
    EvernoteXMLResourceErrorInvalidData = 1002
};

inline const QString evernoteXMLParseOperationErrorDomain = QStringLiteral("EvernoteXMLParseOperationErrorDomain");

enum EvernoteXMLParseOperationErrorCode : int {
    EvernoteXMLParseOperationErrorNoInputStream = 1001,
    EvernoteXMLParseOperationErrorNoParser = 1002,
    EvernoteXMLParseOperationErrorUnknownEncoding = 1003,
    EvernoteXMLParseOperationErrorException = 1004,
    // Of a copy, whose output did not take everything.
    EvernoteXMLParseOperationErrorCopyNotWritten = 1005
};
