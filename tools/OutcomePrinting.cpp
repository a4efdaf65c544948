// SPDX-License-Identifier: MIT
#include "tools/OutcomePrinting.h"

#include "tools/ReportDocument.h"
#include "tools/TerminalText.h"

namespace {

void printSkipped(const std::vector<ImportReport::SkippedNote>& notes)
{
    for (const ImportReport::SkippedNote& note : notes)
        printLine(QStringLiteral("  Skipped \"%1\": %2").arg(note.title, reasonOf(note)));
}

QString errorText(const RunOutcome& outcome)
{
    return outcome.error ? outcome.error->localizedDescription()
                         : QStringLiteral("An unknown error occurred.");
}

} // namespace

void printPlaces(const QStringList& places)
{
    for (const QString& place : places)
        printLine(QStringLiteral("  In %1").arg(place));
}

void printOutcome(const RunOutcome& outcome, const QStringList& places)
{
    for (const ImportReport::Warning& warning : outcome.report.warnings)
        printLine(QStringLiteral("  Note \"%1\": %2").arg(warning.title, warning.text));
    printSkipped(outcome.report.skipped);
    if (outcome.report.isRecognizedAsModern) {
        printLine(QStringLiteral("  %1 is of today's Evernote and was read with the setting ModernENEX on; "
                                 "--exact leaves it off.")
                      .arg(outcome.file));
    }
    for (const QString& remark : outcome.report.remarks)
        printLine(QStringLiteral("  %1: %2").arg(outcome.file, remark));
    if (outcome.end == RunOutcome::End::Cancelled)
        printProblem(QStringLiteral("%1: cancelled, nothing was imported.").arg(outcome.file));
    else if (outcome.end == RunOutcome::End::Failed)
        printProblem(QStringLiteral("%1: %2").arg(outcome.file, errorText(outcome)));
    if (!outcome.handedTo.isEmpty())
        printLine(QStringLiteral("  Handed to %1").arg(outcome.handedTo));
    printPlaces(places);
    const bool logIsOfUse = outcome.end == RunOutcome::End::Failed || !outcome.report.skipped.empty();
    if (logIsOfUse && !outcome.logPath.isEmpty())
        printLine(QStringLiteral("  The log is %1").arg(outcome.logPath));
}

void printEarlierImport(const EarlierImport& earlier)
{
    if (!earlier.places.isEmpty() || !earlier.skipped.empty()) {
        const QString items
            = earlier.items == 1 ? QStringLiteral("1 item") : QStringLiteral("%1 items").arg(earlier.items);
        printLine(QStringLiteral("Finished an import that had been interrupted: %1.").arg(items));
    }
    printPlaces(earlier.places);
    printSkipped(earlier.skipped);
    if (earlier.error)
        printProblem(earlier.error->localizedDescription());
}
