// SPDX-License-Identifier: MIT
#include "app/ContentSummary.h"

#include "platform/core/LocalizedStrings.h"

#include <QLocale>

using platform::localizedString;

namespace {

struct Part {
    QString text; // with a place for the number
    quint64 count;
};

QString line(const QString& whole, quint64 count, const std::vector<Part>& parts = {})
{
    const QLocale locale;
    QStringList texts;
    for (const Part& part : parts) {
        if (part.count > 0)
            texts += part.text.arg(locale.toString(part.count));
    }
    const QString text = whole.arg(locale.toString(count));
    return texts.isEmpty() ? text
                           : QStringLiteral("%1 (%2)").arg(text, texts.join(QStringLiteral("; ")));
}

} // namespace

QStringList contentSummary(const std::vector<ImportOutcome>& outcomes)
{
    quint64 notes = 0;
    quint64 items = 0;
    quint64 skipped = 0;
    NoteCounts counts;
    for (const ImportOutcome& outcome : outcomes) {
        notes += outcome.report.notes;
        items += outcome.importedItems();
        skipped += outcome.report.skipped.size();
        counts += outcome.importedCounts();
    }
    // What stops a run may be told as a skipped note that had not been counted.
    const quint64 handled = std::min(notes, items + skipped);
    const QString inSkippedNotes = localizedString("%1 in skipped notes");
    QStringList lines;
    if (notes > 0)
        lines += line(localizedString("Notes: %1"), notes,
                      {{localizedString("%1 imported"), items},
                       {localizedString("%1 skipped"), skipped},
                       {localizedString("%1 not imported"), notes - handled}});
    if (counts.resources > 0)
        lines += line(localizedString("Attachments: %1"), counts.resources,
                      {{localizedString("%1 shown"), counts.shownResources},
                       {localizedString("%1 kept at the end of their notes"), counts.keptResources},
                       {localizedString("%1 left out"), counts.leftOutResources},
                       {inSkippedNotes, counts.resourcesOfSkippedNotes}});
    if (counts.missingAttachments > 0)
        lines += line(localizedString("Attachments that the files do not hold: %1"),
                      counts.missingAttachments);
    if (counts.encryptedPassages > 0)
        lines += line(localizedString("Encrypted passages: %1"), counts.encryptedPassages);
    if (counts.tasks > 0)
        lines += line(localizedString("Tasks: %1"), counts.tasks,
                      {{localizedString("%1 as to-do lines"), counts.taskLines},
                       {localizedString("%1 left out"), counts.leftOutTasks},
                       {inSkippedNotes, counts.tasksOfSkippedNotes}});
    if (counts.links > 0)
        lines += line(localizedString("Links between notes: %1"), counts.links,
                      {{localizedString("%1 lead to imported notes"), counts.resolvedLinks},
                       {localizedString("%1 as they were"), counts.links - counts.resolvedLinks}});
    return lines;
}
