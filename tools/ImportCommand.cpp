// SPDX-License-Identifier: MIT
#include "tools/ImportCommand.h"

#include "platform/defaults/UserDefaults.h"
#include "platform/files/FileManager.h"
#include "tools/FileRun.h"
#include "tools/InterruptWatcher.h"
#include "tools/ReportDocument.h"

#include <cstdio>

namespace {

void print(const QString& line)
{
    std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stdout);
    std::fflush(stdout);
}

void printProblem(const QString& text)
{
    std::fputs(QStringLiteral("vupuge-import: %1\n").arg(text).toUtf8().constData(), stderr);
}

QString notesText(quint64 count) { return count == 1 ? QStringLiteral("1 note") : QStringLiteral("%1 notes").arg(count); }

QString errorText(const RunOutcome& outcome)
{
    return outcome.error ? outcome.error->localizedDescription() : QStringLiteral("An unknown error occurred.");
}

} // namespace

ImportCommand::ImportCommand(ImportOptions options)
    : m_options(std::move(options))
{
}

ExitStatus ImportCommand::execute()
{
    for (const auto& [key, value] : m_options.settings)
        platform::UserDefaults::standard().setOverride(key, value);
    const std::unique_ptr<ImportDestination> destination = ImportDestination::forOptions(m_options);
    QString problem;
    switch (destination->prepare(m_options, &problem)) {
    case ImportDestination::Readiness::Ready:
        break;
    case ImportDestination::Readiness::WrongUsage:
        printProblem(problem);
        return ExitStatus::WrongUsage;
    case ImportDestination::Readiness::Failure:
        printProblem(problem);
        return ExitStatus::RunFailed;
    }
    runFiles(*destination);
    const bool reportWritten = writeReport();
    printSummary();
    return reportWritten ? status() : ExitStatus::RunFailed;
}

void ImportCommand::runFiles(ImportDestination& destination)
{
    ProgressDisplay progress(ProgressDisplay::styleForStandardOutput());
    FileRun* current = nullptr;
    const InterruptWatcher watcher([this, &current] {
        m_interrupted = true;
        if (current)
            current->cancel();
    });
    for (const QString& file : m_options.files) {
        FileRun run(file, destination.bridge(), destination.directories(), progress);
        current = &run;
        RunOutcome outcome = run.run();
        current = nullptr;
        const QStringList places = destination.finishRun(outcome);
        printOutcome(outcome, places);
        m_outcomes.push_back(std::move(outcome));
        if (m_interrupted)
            break;
    }
}

void ImportCommand::printOutcome(const RunOutcome& outcome, const QStringList& places) const
{
    for (const ImportReport::Warning& warning : outcome.report.warnings)
        print(QStringLiteral("  Note \"%1\": %2").arg(warning.title, warning.text));
    for (const ImportReport::SkippedNote& skipped : outcome.report.skipped)
        print(QStringLiteral("  Skipped \"%1\": %2").arg(skipped.title, reasonOf(skipped)));
    switch (outcome.end) {
    case RunOutcome::End::Imported:
        for (const QString& place : places)
            print(QStringLiteral("  In %1").arg(place));
        break;
    case RunOutcome::End::Cancelled:
        printProblem(QStringLiteral("%1: cancelled, nothing was imported.").arg(outcome.file));
        break;
    case RunOutcome::End::Failed:
        printProblem(QStringLiteral("%1: %2").arg(outcome.file, errorText(outcome)));
        break;
    }
    if (!outcome.logPath.isEmpty() && (outcome.end == RunOutcome::End::Failed || !outcome.report.skipped.empty()))
        print(QStringLiteral("  The log is %1").arg(outcome.logPath));
}

void ImportCommand::printSummary() const
{
    quint64 notes = 0;
    quint64 items = 0;
    quint64 skipped = 0;
    for (const RunOutcome& outcome : m_outcomes) {
        notes += outcome.report.notes;
        items += outcome.importedItems();
        skipped += outcome.report.skipped.size();
    }
    print(QStringLiteral("%1: %2 became items, %3 skipped.").arg(notesText(notes)).arg(items).arg(skipped));
}

bool ImportCommand::writeReport() const
{
    if (m_options.reportPath.isEmpty())
        return true;
    platform::Error error;
    if (platform::writeFile(m_options.reportPath, reportDocument(m_outcomes), platform::WriteOption::Atomic, &error))
        return true;
    printProblem(error.localizedDescription());
    return false;
}

ExitStatus ImportCommand::status() const
{
    bool skipped = false;
    for (const RunOutcome& outcome : m_outcomes) {
        if (outcome.end != RunOutcome::End::Imported)
            return ExitStatus::RunFailed;
        skipped = skipped || !outcome.report.skipped.empty();
    }
    if (m_interrupted)
        return ExitStatus::RunFailed;
    return skipped && m_options.strict ? ExitStatus::NotesSkipped : ExitStatus::Success;
}
