// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EnexCensus.h"

#include <QStringList>

// What is said of a file of today's Evernote. read: whether it is read whole, or as it stands, in the old way.
enum class ModernFileRead { Whole, AsItStands };

// For the run's log, in English; none for a file that shows no signs.
[[nodiscard]] QStringList modernFileLogLines(const ModernFileSigns& signs, ModernFileRead read);
// For the person who imports it, in their language: what is lost, and how to keep it. None for a file that is
// read whole or loses nothing.
[[nodiscard]] QStringList modernFileRemarks(const ModernFileSigns& signs, ModernFileRead read);
