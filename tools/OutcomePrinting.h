// SPDX-License-Identifier: MIT
#pragma once

#include "tools/ImportDestination.h"
#include "tools/RunOutcome.h"

// What became of one run, for people: its warnings and skipped notes, how it ended, and where its items lie.
void printOutcome(const RunOutcome& outcome, const QStringList& places);

// What was finished of an interrupted import; nothing where there was none.
void printEarlierImport(const EarlierImport& earlier);

// Where items lie, a line each.
void printPlaces(const QStringList& places);
