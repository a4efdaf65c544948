// SPDX-License-Identifier: MIT
#pragma once

#include "import/EvernoteExportOperation.h"
#include "platform/core/Error.h"
#include "tools/RunOutcome.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

// What one run imports.
struct ImportSource {
    RunOutcome::Source kind = RunOutcome::Source::File;
    // The file as it was given, or the notebook's name.
    QString name;
    // Where it lies; empty where nobody knows.
    QString path;
    // Why it need not be tried.
    std::optional<platform::Error> problem;
    // A run that is not yet queued.
    std::function<std::shared_ptr<EvernoteExportOperation>()> newRun;
};
