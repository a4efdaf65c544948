// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Where a run lays its files folder and its log, as absolute paths without a trailing separator.
struct RunDirectories {
    // The user's temporary directory; empty when there is none that can be trusted.
    QString temporary;
    // The user's Library folder.
    QString library;
    // The user's Application Support folder.
    QString applicationSupport;
    // The folder of the log, where it is not the notes application's own.
    QString log;

    // The user's own folders.
    [[nodiscard]] static RunDirectories standard();

    // The files folder for the edition of the notes application.
    [[nodiscard]] QString filesPathFor(const QString& bundleIdentifier) const;
    // The folder of the log for the edition.
    [[nodiscard]] QString logFolderFor(const QString& bundleIdentifier) const;
};
