// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/EvernoteApplication.h"
#include "tools/ImportOptions.h"
#include "tools/ImportSource.h"

#include <memory>
#include <optional>
#include <vector>

using Notebooks = std::vector<std::shared_ptr<platform::EvernoteNotebook>>;

// The Evernote that the options mean; null with a sentence where there is none.
[[nodiscard]] std::shared_ptr<platform::EvernoteApplication>
evernoteForOptions(const ImportOptions& options, QString* problem);

// Those with these names, each once, in the names' order, or all of them that have a name where no
// name is given. None with a sentence when there is none, or none of one of the names.
[[nodiscard]] std::optional<Notebooks> notebooksNamed(const QStringList& names,
                                                      const Notebooks& listed, QString* problem);

// A run for each.
[[nodiscard]] std::vector<ImportSource>
sourcesOfNotebooks(const Notebooks& notebooks,
                   const std::shared_ptr<platform::EvernoteApplication>& evernote);

// A line for each: its name and the number of its notes, or why it cannot be read.
void printNotebooks(const Notebooks& notebooks);
