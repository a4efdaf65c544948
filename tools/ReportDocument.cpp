// SPDX-License-Identifier: MIT
#include "tools/ReportDocument.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString outcomeWord(RunOutcome::End end)
{
    switch (end) {
    case RunOutcome::End::Imported:
        return QStringLiteral("imported");
    case RunOutcome::End::Cancelled:
        return QStringLiteral("cancelled");
    case RunOutcome::End::Failed:
        break;
    }
    return QStringLiteral("failed");
}

QJsonObject errorObject(const platform::Error& error)
{
    return {{QStringLiteral("domain"), error.domain()},
            {QStringLiteral("code"), error.code()},
            {QStringLiteral("text"), error.localizedDescription()}};
}

qint64 number(quint64 count) { return static_cast<qint64>(count); }

// What became of all that notes held.
void insertCounts(QJsonObject& object, const NoteCounts& counts)
{
    object.insert(QStringLiteral("resources"),
                  QJsonObject{{QStringLiteral("count"), number(counts.resources)},
                              {QStringLiteral("shown"), number(counts.shownResources)},
                              {QStringLiteral("kept"), number(counts.keptResources)},
                              {QStringLiteral("leftOut"), number(counts.leftOutResources)},
                              {QStringLiteral("inSkippedNotes"), number(counts.resourcesOfSkippedNotes)}});
    object.insert(QStringLiteral("missingAttachments"), number(counts.missingAttachments));
    object.insert(QStringLiteral("encryptedPassages"), number(counts.encryptedPassages));
    object.insert(QStringLiteral("tasks"),
                  QJsonObject{{QStringLiteral("count"), number(counts.tasks)},
                              {QStringLiteral("toDoLines"), number(counts.taskLines)},
                              {QStringLiteral("leftOut"), number(counts.leftOutTasks)},
                              {QStringLiteral("inSkippedNotes"), number(counts.tasksOfSkippedNotes)}});
    object.insert(QStringLiteral("links"),
                  QJsonObject{{QStringLiteral("count"), number(counts.links)},
                              {QStringLiteral("resolved"), number(counts.resolvedLinks)},
                              {QStringLiteral("asTheyWere"), number(counts.links - counts.resolvedLinks)}});
}

QJsonObject modernObject(const ImportReport& report)
{
    return {{QStringLiteral("header"), report.modernSigns.hasModernHeader},
            {QStringLiteral("whiteSpace"), report.modernSigns.hasWhiteSpaceInNotes},
            {QStringLiteral("tasks"), number(report.modernSigns.tasks)},
            {QStringLiteral("readWhole"), report.isReadAsModern},
            {QStringLiteral("recognized"), report.isRecognizedAsModern}};
}

// The key under which a run's source stands.
QString sourceKey(const RunOutcome& outcome)
{
    return outcome.source == RunOutcome::Source::Notebook ? QStringLiteral("notebook")
                                                          : QStringLiteral("file");
}

QJsonObject runObject(const RunOutcome& outcome)
{
    QJsonObject run{{sourceKey(outcome), outcome.file},
                    {QStringLiteral("outcome"), outcomeWord(outcome.end)},
                    {QStringLiteral("notes"), static_cast<qint64>(outcome.report.notes)},
                    {QStringLiteral("items"), static_cast<qint64>(outcome.importedItems())},
                    {QStringLiteral("skipped"), static_cast<qint64>(outcome.report.skipped.size())},
                    {QStringLiteral("seconds"), outcome.seconds},
                    {QStringLiteral("log"), outcome.logPath},
                    {QStringLiteral("modern"), modernObject(outcome.report)},
                    {QStringLiteral("remarks"), QJsonArray::fromStringList(outcome.report.remarks)}};
    insertCounts(run, outcome.importedCounts());
    if (!outcome.handedTo.isEmpty())
        run.insert(QStringLiteral("handedTo"), outcome.handedTo);
    if (outcome.error)
        run.insert(QStringLiteral("error"), errorObject(*outcome.error));
    return run;
}

QJsonObject skippedObject(const ImportReport::SkippedNote& skipped)
{
    QJsonObject object = errorObject(skipped.error.value_or(platform::Error()));
    object.insert(QStringLiteral("title"), skipped.title);
    object.insert(QStringLiteral("text"), reasonOf(skipped));
    return object;
}

QJsonObject earlierObject(const EarlierImport& earlier)
{
    QJsonArray skipped;
    for (const ImportReport::SkippedNote& note : earlier.skipped)
        skipped += skippedObject(note);
    QJsonObject object{{QStringLiteral("items"), static_cast<qint64>(earlier.items)},
                       {QStringLiteral("places"), QJsonArray::fromStringList(earlier.places)},
                       {QStringLiteral("skipped"), skipped}};
    if (earlier.error)
        object.insert(QStringLiteral("error"), errorObject(*earlier.error));
    return object;
}

} // namespace

QString reasonOf(const ImportReport::SkippedNote& skipped)
{
    return skipped.error ? skipped.error->localizedDescription() : QStringLiteral("The reason is not known.");
}

QByteArray reportDocument(const std::vector<RunOutcome>& outcomes, const EarlierImport& earlier)
{
    qint64 notes = 0;
    qint64 items = 0;
    double seconds = 0;
    NoteCounts counts;
    QJsonArray skippedNotes;
    QJsonArray warnings;
    QJsonArray runs;
    for (const RunOutcome& outcome : outcomes) {
        notes += static_cast<qint64>(outcome.report.notes);
        items += static_cast<qint64>(outcome.importedItems());
        seconds += outcome.seconds;
        counts += outcome.importedCounts();
        for (const ImportReport::SkippedNote& skipped : outcome.report.skipped) {
            QJsonObject object = skippedObject(skipped);
            object.insert(sourceKey(outcome), outcome.file);
            skippedNotes += object;
        }
        for (const ImportReport::Warning& warning : outcome.report.warnings) {
            warnings += QJsonObject{{QStringLiteral("title"), warning.title},
                                    {QStringLiteral("text"), warning.text},
                                    {sourceKey(outcome), outcome.file}};
        }
        runs += runObject(outcome);
    }
    QJsonObject report{{QStringLiteral("notes"), notes},
                       {QStringLiteral("items"), items},
                       {QStringLiteral("skipped"), skippedNotes},
                       {QStringLiteral("warnings"), warnings},
                       {QStringLiteral("seconds"), seconds},
                       {QStringLiteral("runs"), runs}};
    insertCounts(report, counts);
    if (!earlier.places.isEmpty() || !earlier.isWhole())
        report.insert(QStringLiteral("earlier"), earlierObject(earlier));
    return QJsonDocument(report).toJson();
}
