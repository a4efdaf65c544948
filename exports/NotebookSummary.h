// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QString>

#include <optional>

// What a list of notebooks says about one, found without holding anything of its notes.
struct NotebookSummary {
    quint64 notes = 0;
    // What wrote the file, as its header says: "Evernote" and "10.104.3", "Evernote/Windows" and
    // "6.x"; empty where it does not.
    QString application;
    QString version;
    // Why the file cannot be read, or not to its end: the notes before that were counted.
    std::optional<platform::Error> problem;

    // Reads an ENEX file to its end. Every end of an element named note counts.
    [[nodiscard]] static NotebookSummary ofFile(const QString& path);
    // Reads an ENEX file as far as its header; its notes are not counted.
    [[nodiscard]] static NotebookSummary ofHeader(const QString& path);

    friend bool operator==(const NotebookSummary&, const NotebookSummary&) = default;
};
