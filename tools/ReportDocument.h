// SPDX-License-Identifier: MIT
#pragma once

#include "tools/RunOutcome.h"

#include <QByteArray>

#include <vector>

// The JSON report of all runs:
//
//   notes, items   numbers
//   skipped        list of {title, domain, code, text, file}
//   warnings       list of {title, text, file}
//   seconds        number
//   runs           list of {file, outcome ("imported", "failed", "cancelled"), notes, items, skipped (number),
//                  seconds, log, error {domain, code, text} where it failed}
[[nodiscard]] QByteArray reportDocument(const std::vector<RunOutcome>& outcomes);

// Why a note was skipped, for people.
[[nodiscard]] QString reasonOf(const ImportReport::SkippedNote& skipped);
