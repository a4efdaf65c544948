// SPDX-License-Identifier: MIT
#pragma once

#include "import/RunDirectories.h"
#include "platform/core/Error.h"
#include "platform/scripting/QuilleryApplication.h"
#include "platform/scripting/ScriptingBridge.h"
#include "tools/ImportOptions.h"
#include "tools/RunOutcome.h"

#include <QString>
#include <QStringList>

#include <memory>

// What became of imports that had been interrupted and that this one finished first.
struct EarlierImport {
    quint64 items = 0;
    // Where they lie.
    QStringList places;
    // Items that are lost.
    std::vector<ImportReport::SkippedNote> skipped;
    // Why it could not be finished; it waits for the next import then.
    std::optional<platform::Error> error;

    [[nodiscard]] bool isWhole() const { return skipped.empty() && !error; }
};

// Where the files of the command line go: a library, or a folder that only lays them out.
class ImportDestination {
public:
    virtual ~ImportDestination();

    // Makes the destination ready for the first run. A destination that must not be touched is wrong usage,
    // anything else that stands in the way a failure.
    enum class Readiness { Ready, WrongUsage, Failure };
    [[nodiscard]] virtual Readiness prepare(const QStringList& files, QString* problem) = 0;
    // What prepare() did besides.
    [[nodiscard]] virtual EarlierImport earlierImport() const { return {}; }

    [[nodiscard]] virtual std::shared_ptr<platform::ScriptingBridge> bridge() = 0;
    [[nodiscard]] virtual RunDirectories directories() = 0;
    // After each run; where what it made lies, a line each. Corrects the outcome where the destination knows
    // better.
    [[nodiscard]] virtual QStringList finishRun(RunOutcome& outcome) = 0;
    // After the last run, what can only be done for all of them; where that lies, a line each. False with an error
    // when nothing of what the runs imported is where it should be.
    [[nodiscard]] virtual bool finish(QStringList*, platform::Error*) { return true; }

    [[nodiscard]] static std::unique_ptr<ImportDestination> forOptions(const ImportOptions& options);
};
