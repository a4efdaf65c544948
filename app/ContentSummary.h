// SPDX-License-Identifier: MIT
#pragma once

#include "app/ImportOutcome.h"

#include <QStringList>

#include <vector>

// What became of the notes of all runs and of what they held, one line for each kind of thing that
// there was any of. The parts of a line make its whole.
[[nodiscard]] QStringList contentSummary(const std::vector<ImportOutcome>& outcomes);
