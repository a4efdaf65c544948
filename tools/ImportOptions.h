// SPDX-License-Identifier: MIT
#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

// What the command line asks for.
struct ImportOptions {
    QStringList files;
    // Absolute; empty when not given.
    QString filesFolder;
    QString library;
    QString reportPath;
    // Settings for this run.
    QList<QPair<QString, QVariant>> settings;
    // Skipped notes count as a failure.
    bool strict = false;

    // What to print instead of running, for --help and --version.
    QString information;
};

// The options, or none with a sentence that says what is wrong with them.
[[nodiscard]] std::optional<ImportOptions> importOptionsFromArguments(const QStringList& arguments,
                                                                      QString* problem);

// A setting's value from the command line: YES and NO, numbers, else text.
[[nodiscard]] QVariant settingValueFromText(const QString& text);
