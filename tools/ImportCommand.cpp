// SPDX-License-Identifier: MIT
#include "tools/ImportCommand.h"

#include "platform/defaults/UserDefaults.h"
#include "platform/files/FileManager.h"
#include "tools/FileRun.h"
#include "tools/InputFiles.h"
#include "tools/InterruptWatcher.h"
#include "tools/OutcomePrinting.h"
#include "tools/ReportDocument.h"
#include "tools/TerminalText.h"
#include "tools/TotalCounts.h"

ImportCommand::ImportCommand(ImportOptions options)
    : m_options(std::move(options))
{
}

ExitStatus ImportCommand::execute()
{
    for (const auto& [key, value] : m_options.settings)
        platform::UserDefaults::standard().setOverride(key, value);
    // To the very end: an interrupt that comes when all is done must not make it look undone.
    const InterruptWatcher watcher([this] { interrupt(); });
    const std::unique_ptr<ImportDestination> destination = ImportDestination::forOptions(m_options);
    checkFiles();
    if (const ExitStatus readiness = prepare(*destination); readiness != ExitStatus::Success)
        return readiness;
    runFiles(*destination);
    const bool reportWritten = writeReport();
    printLine(totalCounts(m_outcomes).sentence());
    return reportWritten ? status() : ExitStatus::RunFailed;
}

void ImportCommand::interrupt()
{
    m_interrupted = true;
    if (m_currentRun)
        m_currentRun->cancel();
}

void ImportCommand::checkFiles()
{
    for (const QString& file : std::as_const(m_options.files)) {
        platform::Error error;
        if (!isReadableFile(file, &error))
            m_unreadable.insert(file, error);
    }
}

ExitStatus ImportCommand::prepare(ImportDestination& destination)
{
    QStringList readable = m_options.files;
    readable.removeIf([this](const QString& file) { return m_unreadable.contains(file); });
    // With nothing to put there the destination stays as it is.
    if (readable.isEmpty())
        return ExitStatus::Success;
    QString problem;
    const ImportDestination::Readiness readiness = destination.prepare(readable, &problem);
    if (readiness == ImportDestination::Readiness::Ready) {
        m_earlierImport = destination.earlierImport();
        printEarlierImport(m_earlierImport);
        return ExitStatus::Success;
    }
    printProblem(problem);
    return readiness == ImportDestination::Readiness::WrongUsage ? ExitStatus::WrongUsage
                                                                 : ExitStatus::RunFailed;
}

void ImportCommand::runFiles(ImportDestination& destination)
{
    ProgressDisplay progress(ProgressDisplay::styleForStandardOutput());
    for (const QString& file : std::as_const(m_options.files)) {
        QStringList places;
        m_outcomes.push_back(runFile(file, destination, progress, places));
        printOutcome(m_outcomes.back(), places);
    }
}

RunOutcome ImportCommand::runFile(const QString& file, ImportDestination& destination,
                                  ProgressDisplay& progress, QStringList& places)
{
    RunOutcome outcome;
    outcome.file = file;
    if (m_unreadable.contains(file)) {
        outcome.error = m_unreadable.value(file);
        return outcome;
    }
    if (m_interrupted) {
        outcome.end = RunOutcome::End::Cancelled;
        return outcome;
    }
    FileRun run(file, destination.bridge(), destination.directories(), progress);
    m_currentRun = &run;
    outcome = run.run();
    m_currentRun = nullptr;
    places = destination.finishRun(outcome);
    return outcome;
}

bool ImportCommand::writeReport() const
{
    if (m_options.reportPath.isEmpty())
        return true;
    platform::Error error;
    const QByteArray document = reportDocument(m_outcomes, m_earlierImport);
    if (platform::writeFile(m_options.reportPath, document, platform::WriteOption::Atomic, &error))
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
    if (!m_earlierImport.isWhole())
        return ExitStatus::RunFailed;
    return skipped && m_options.strict ? ExitStatus::NotesSkipped : ExitStatus::Success;
}
