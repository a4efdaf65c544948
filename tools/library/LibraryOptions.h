// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

// What the command line asks for.
struct LibraryOptions {
    // Absolute; the embedded library's own folder when not given.
    QString library;
    QString busName;
    // How long the program waits without work before it ends; none for ever.
    std::optional<std::chrono::seconds> idleExit;

    // What to print instead of running, for --help and --version.
    QString information;
};

// The options, or none with a sentence that says what is wrong with them.
[[nodiscard]] std::optional<LibraryOptions>
libraryOptionsFromArguments(const QStringList& arguments, QString* problem);
