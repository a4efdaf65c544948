// SPDX-License-Identifier: MIT
#include "platform/scripting/EvernoteApplication.h"

namespace platform {

EvernoteNote::~EvernoteNote() = default;
EvernoteNotebook::~EvernoteNotebook() = default;

quint64 EvernoteNotebook::numberOfNotes()
{
    return notes().size();
}

std::optional<Error> EvernoteNotebook::problem()
{
    return std::nullopt;
}

EvernoteApplication::~EvernoteApplication() = default;

QStringList EvernoteApplication::lastExportWarnings()
{
    return {};
}

std::optional<Error> EvernoteApplication::lastError()
{
    return std::nullopt;
}

} // namespace platform
