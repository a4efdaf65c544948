// SPDX-License-Identifier: MIT
#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

// What the command line asks for.
struct ImportOptions {
    // Empty where notebooks are meant.
    QStringList files;
    // What to do with the notebooks of Evernote, if anything.
    enum class Notebooks { None, Import, List };
    Notebooks notebooks = Notebooks::None;
    // Which of them; empty for all.
    QStringList notebookNames;
    // Absolute: a folder of ENEX files that is Evernote then; empty when not given.
    QString evernote;
    // Absolute; empty when not given.
    QString filesFolder;
    QString library;
    QString reportPath;
    // Settings for this run.
    QList<QPair<QString, QVariant>> settings;
    // Skipped notes count as a failure.
    bool strict = false;
    // Files are read as they stand, also those of today's Evernote.
    bool exact = false;

    // The settings name this one.
    [[nodiscard]] bool setsKey(const QString& key) const;

    // What to print instead of running, for --help and --version.
    QString information;
};

// The options, or none with a sentence that says what is wrong with them.
[[nodiscard]] std::optional<ImportOptions> importOptionsFromArguments(const QStringList& arguments,
                                                                      QString* problem);

// A setting's value from the command line: YES and NO, numbers, else text.
[[nodiscard]] QVariant settingValueFromText(const QString& text);
