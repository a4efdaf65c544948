// SPDX-License-Identifier: MIT
#include "tools/ImportCommand.h"

#include "platform/defaults/UserDefaults.h"
#include "platform/files/FileManager.h"
#include "tools/ImportRun.h"
#include "tools/InputFiles.h"
#include "tools/InterruptWatcher.h"
#include "tools/NotebookSources.h"
#include "tools/OutcomePrinting.h"
#include "tools/ReportDocument.h"
#include "tools/TerminalText.h"
#include "tools/TotalCounts.h"

#include <QFileInfo>

ImportCommand::ImportCommand(ImportOptions options)
    : m_options(std::move(options))
{
}

ExitStatus ImportCommand::execute()
{
    for (const auto& [key, value] : m_options.settings)
        platform::UserDefaults::standard().setOverride(key, value);
    // Before interrupts are watched for: one that comes while notebooks are counted ends the program at once.
    if (const ExitStatus found = findSources(); found != ExitStatus::Success)
        return found;
    if (m_options.notebooks == ImportOptions::Notebooks::List)
        return ExitStatus::Success;
    // To the very end: an interrupt that comes when all is done must not make it look undone.
    const InterruptWatcher watcher([this] { interrupt(); });
    const std::unique_ptr<ImportDestination> destination = ImportDestination::forOptions(m_options);
    if (const ExitStatus readiness = prepare(*destination); readiness != ExitStatus::Success)
        return readiness;
    runAll(*destination);
    const bool reportWritten = writeReport();
    const TotalCounts counts = totalCounts(m_outcomes);
    for (const QString& line : counts.contentLines())
        printLine(line);
    printLine(counts.sentence());
    return reportWritten ? status() : ExitStatus::RunFailed;
}

void ImportCommand::interrupt()
{
    m_interrupted = true;
    if (m_currentRun)
        m_currentRun->cancel();
}

ExitStatus ImportCommand::findSources()
{
    if (m_options.notebooks != ImportOptions::Notebooks::None)
        return findNotebooks();
    findFiles();
    return ExitStatus::Success;
}

void ImportCommand::findFiles()
{
    for (const QString& file : std::as_const(m_options.files)) {
        ImportSource source{RunOutcome::Source::File, file, file, {}, {}};
        platform::Error error;
        if (!isReadableFile(file, &error))
            source.problem = error;
        source.newRun = [this, file] {
            const auto run = std::make_shared<EvernoteXMLFileExportOperation>();
            run->setExportFileURL(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()));
            run->setModernFiles(modernFiles());
            return run;
        };
        m_sources.push_back(source);
    }
}

ExitStatus ImportCommand::findNotebooks()
{
    QString problem;
    const auto evernote = evernoteForOptions(m_options, &problem);
    if (!evernote) {
        printProblem(problem);
        return ExitStatus::RunFailed;
    }
    const Notebooks listed = evernote->notebooks();
    if (const auto error = evernote->lastError(); listed.empty() && error) {
        printProblem(error->localizedDescription());
        return ExitStatus::RunFailed;
    }
    if (m_options.notebooks == ImportOptions::Notebooks::List) {
        printNotebooks(listed);
        return ExitStatus::Success;
    }
    const std::optional<Notebooks> chosen = notebooksNamed(m_options.notebookNames, listed, &problem);
    if (!chosen) {
        printProblem(problem);
        return ExitStatus::WrongUsage;
    }
    m_sources = sourcesOfNotebooks(*chosen, evernote);
    return ExitStatus::Success;
}

ExitStatus ImportCommand::prepare(ImportDestination& destination)
{
    QStringList readable;
    for (const ImportSource& source : m_sources) {
        if (!source.problem)
            readable += source.path;
    }
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

void ImportCommand::runAll(ImportDestination& destination)
{
    ProgressDisplay progress(ProgressDisplay::styleForStandardOutput());
    for (const ImportSource& source : m_sources) {
        QStringList places;
        m_outcomes.push_back(runSource(source, destination, progress, places));
        printOutcome(m_outcomes.back(), places);
    }
    QStringList places;
    platform::Error error;
    if (!destination.finish(&places, &error)) {
        printProblem(error.localizedDescription());
        for (RunOutcome& outcome : m_outcomes) {
            if (outcome.end == RunOutcome::End::Imported) {
                outcome.end = RunOutcome::End::Failed;
                outcome.error = error;
            }
        }
    }
    printPlaces(places);
}

RunOutcome ImportCommand::runSource(const ImportSource& source, ImportDestination& destination,
                                    ProgressDisplay& progress, QStringList& places)
{
    RunOutcome outcome;
    outcome.source = source.kind;
    outcome.file = source.name;
    if (source.problem) {
        outcome.error = source.problem;
        return outcome;
    }
    if (m_interrupted) {
        outcome.end = RunOutcome::End::Cancelled;
        return outcome;
    }
    ImportRun run(source, destination.bridge(), destination.directories(), progress);
    m_currentRun = &run;
    outcome = run.run();
    m_currentRun = nullptr;
    places = destination.finishRun(outcome);
    outcome.manifest = nullptr;
    return outcome;
}

EvernoteXMLFileExportOperation::ModernFiles ImportCommand::modernFiles() const
{
    using ModernFiles = EvernoteXMLFileExportOperation::ModernFiles;
    if (m_options.exact)
        return ModernFiles::ReadAsItStands;
    return m_options.setsKey(QStringLiteral("ModernENEX")) ? ModernFiles::BySetting : ModernFiles::Recognized;
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
