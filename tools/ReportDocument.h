// SPDX-License-Identifier: MIT
#pragma once

#include "tools/ImportDestination.h"
#include "tools/RunOutcome.h"

#include <QByteArray>

#include <vector>

// The JSON report of all runs:
//
//   notes, items   numbers
//   skipped        list of {title, domain, code, text, file}; "notebook" for "file" where notebooks were
//                  imported, as below
//   warnings       list of {title, text, file}
//   seconds        number
//   resources      {count, shown, kept, leftOut, inSkippedNotes}: attachments; the last four make the first
//   missingAttachments, encryptedPassages   numbers
//   tasks          {count, toDoLines, leftOut, inSkippedNotes}; the last three make the first
//   links          {count, resolved, asTheyWere}: links between notes that came across; the last two make the
//                  first
//   runs           list of {file, outcome ("imported", "failed", "cancelled"), notes, items, skipped
//                  (number), resources to links as above (0 unless imported), modern {header, whiteSpace,
//                  tasks, readWhole, recognized}, remarks (list of texts), seconds, log, error {domain, code, text} where it failed, handedTo (text)
//                  where an application on the session bus was asked to import}
//   earlier        only where an interrupted import was finished first: {items, places, skipped (list), error
//                  {domain, code, text} where it still waits}
[[nodiscard]] QByteArray reportDocument(const std::vector<RunOutcome>& outcomes,
                                        const EarlierImport& earlier);

// Why a note was skipped, for people.
[[nodiscard]] QString reasonOf(const ImportReport::SkippedNote& skipped);
