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

QJsonObject runObject(const RunOutcome& outcome)
{
    QJsonObject run{{QStringLiteral("file"), outcome.file},
                    {QStringLiteral("outcome"), outcomeWord(outcome.end)},
                    {QStringLiteral("notes"), static_cast<qint64>(outcome.report.notes)},
                    {QStringLiteral("items"), static_cast<qint64>(outcome.importedItems())},
                    {QStringLiteral("skipped"), static_cast<qint64>(outcome.report.skipped.size())},
                    {QStringLiteral("seconds"), outcome.seconds},
                    {QStringLiteral("log"), outcome.logPath}};
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
    QJsonArray skippedNotes;
    QJsonArray warnings;
    QJsonArray runs;
    for (const RunOutcome& outcome : outcomes) {
        notes += static_cast<qint64>(outcome.report.notes);
        items += static_cast<qint64>(outcome.importedItems());
        seconds += outcome.seconds;
        for (const ImportReport::SkippedNote& skipped : outcome.report.skipped) {
            QJsonObject object = skippedObject(skipped);
            object.insert(QStringLiteral("file"), outcome.file);
            skippedNotes += object;
        }
        for (const ImportReport::Warning& warning : outcome.report.warnings) {
            warnings += QJsonObject{{QStringLiteral("title"), warning.title},
                                    {QStringLiteral("text"), warning.text},
                                    {QStringLiteral("file"), outcome.file}};
        }
        runs += runObject(outcome);
    }
    QJsonObject report{{QStringLiteral("notes"), notes},
                       {QStringLiteral("items"), items},
                       {QStringLiteral("skipped"), skippedNotes},
                       {QStringLiteral("warnings"), warnings},
                       {QStringLiteral("seconds"), seconds},
                       {QStringLiteral("runs"), runs}};
    if (!earlier.places.isEmpty() || !earlier.isWhole())
        report.insert(QStringLiteral("earlier"), earlierObject(earlier));
    return QJsonDocument(report).toJson();
}
