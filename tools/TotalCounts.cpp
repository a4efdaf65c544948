// SPDX-License-Identifier: MIT
#include "tools/TotalCounts.h"

#include <QStringList>

namespace {

QString counted(quint64 count, const QString& one, const QString& several)
{
    return count == 1 ? one : several.arg(count);
}

} // namespace

QString countedNotes(quint64 count)
{
    return counted(count, QStringLiteral("1 note"), QStringLiteral("%1 notes"));
}

quint64 TotalCounts::notImported() const
{
    // What stops a run may be told as a skipped note that had not been counted.
    return notes - std::min(notes, items + skipped);
}

QString TotalCounts::sentence() const
{
    QStringList parts;
    parts += counted(items, QStringLiteral("1 became an item"), QStringLiteral("%1 became items"));
    parts += skipped == 0
                 ? QStringLiteral("none were skipped")
                 : counted(skipped, QStringLiteral("1 was skipped"), QStringLiteral("%1 were skipped"));
    if (const quint64 left = notImported())
        parts += counted(left, QStringLiteral("1 was not imported"), QStringLiteral("%1 were not imported"));
    return QStringLiteral("%1: %2.").arg(countedNotes(notes), parts.join(QStringLiteral(", ")));
}

QStringList TotalCounts::contentLines() const
{
    QStringList lines;
    // The parts of a whole that are not nothing.
    const auto add = [&lines](const QString& whole, quint64 count, const QList<QPair<QString, quint64>>& parts) {
        if (count == 0)
            return;
        QStringList texts;
        for (const auto& [text, part] : parts) {
            if (part > 0)
                texts += QStringLiteral("%1 %2").arg(part).arg(text);
        }
        const QString inBrackets = texts.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(texts.join(QStringLiteral(", ")));
        lines += QStringLiteral("%1: %2%3.").arg(whole).arg(count).arg(inBrackets);
    };
    const QString inSkippedNotes = QStringLiteral("in skipped notes");
    add(QStringLiteral("Attachments"), content.resources,
        {{QStringLiteral("shown"), content.shownResources},
         {QStringLiteral("kept at the end of their notes"), content.keptResources},
         {QStringLiteral("left out"), content.leftOutResources},
         {inSkippedNotes, content.resourcesOfSkippedNotes}});
    add(QStringLiteral("Missing attachments"), content.missingAttachments, {});
    add(QStringLiteral("Encrypted passages"), content.encryptedPassages, {});
    add(QStringLiteral("Tasks"), content.tasks,
        {{QStringLiteral("to-do lines"), content.taskLines},
         {QStringLiteral("left out"), content.leftOutTasks},
         {inSkippedNotes, content.tasksOfSkippedNotes}});
    add(QStringLiteral("Links between notes"), content.links,
        {{QStringLiteral("lead to items"), content.resolvedLinks},
         {QStringLiteral("as they were"), content.links - content.resolvedLinks}});
    return lines;
}

TotalCounts totalCounts(const std::vector<RunOutcome>& outcomes)
{
    TotalCounts counts;
    for (const RunOutcome& outcome : outcomes) {
        counts.notes += outcome.report.notes;
        counts.items += outcome.importedItems();
        counts.skipped += outcome.report.skipped.size();
        counts.content += outcome.importedCounts();
    }
    return counts;
}
