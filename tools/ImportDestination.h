// SPDX-License-Identifier: MIT
#pragma once

#include "import/RunDirectories.h"
#include "platform/core/Error.h"
#include "platform/scripting/QuilleryApplication.h"
#include "platform/scripting/ScriptingBridge.h"
#include "tools/ImportOptions.h"
#include "tools/RunOutcome.h"

#include <QLockFile>
#include <QString>

#include <memory>

// Where the files of the command line go: a library, or a folder that only lays them out.
class ImportDestination {
public:
    virtual ~ImportDestination();

    // Makes the destination ready for the first run. A destination that must not be touched is wrong usage,
    // anything else that stands in the way a failure.
    enum class Readiness { Ready, WrongUsage, Failure };
    [[nodiscard]] virtual Readiness prepare(const ImportOptions& options, QString* problem) = 0;

    [[nodiscard]] virtual std::shared_ptr<platform::ScriptingBridge> bridge() = 0;
    [[nodiscard]] virtual RunDirectories directories() = 0;
    // After each run; where what it made lies, a line each.
    [[nodiscard]] virtual QStringList finishRun(RunOutcome& outcome) = 0;

    [[nodiscard]] static std::unique_ptr<ImportDestination> forOptions(const ImportOptions& options);
};
