// SPDX-License-Identifier: MIT
#pragma once

#include "exports/SelectedNotesStream.h"
#include "platform/core/Error.h"
#include "platform/scripting/EvernoteApplication.h"

#include <QString>
#include <QStringList>

#include <vector>

// Both write beside the path first, and put what is whole into its place; something that is there
// already is an error, and stays.

// One ENEX file in the form of a classic Evernote, a note at a time in memory.
[[nodiscard]] bool exportAsEnex(const std::vector<SelectedNotesStream::Note>& notes,
                                const QString& to, platform::EvernoteApplication::ExportTags tags,
                                platform::Error* error = nullptr);

// A folder with a page for each note. warnings: filled with what people should know of them.
[[nodiscard]] bool exportAsPages(const std::vector<SelectedNotesStream::Note>& notes,
                                 const QString& to, QStringList* warnings,
                                 platform::Error* error = nullptr);
