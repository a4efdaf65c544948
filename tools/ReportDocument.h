// SPDX-License-Identifier: MIT
#pragma once

#include "tools/ImportDestination.h"
#include "tools/RunOutcome.h"

#include <QByteArray>

#include <vector>

// The JSON report of all runs:
//
//   notes, items   numbers
//   skipped        list of {title, domain, code, text, file}
//   warnings       list of {title, text, file}
//   seconds        number
//   runs           list of {file, outcome ("imported", "failed", "cancelled"), notes, items, skipped
//                  (number), seconds, log, error {domain, code, text} where it failed}
//   earlier        only where an interrupted import was finished first: {items, places, skipped (list), error
//                  {domain, code, text} where it still waits}
[[nodiscard]] QByteArray reportDocument(const std::vector<RunOutcome>& outcomes,
                                        const EarlierImport& earlier);

// Why a note was skipped, for people.
[[nodiscard]] QString reasonOf(const ImportReport::SkippedNote& skipped);
