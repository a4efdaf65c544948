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

TotalCounts totalCounts(const std::vector<RunOutcome>& outcomes)
{
    TotalCounts counts;
    for (const RunOutcome& outcome : outcomes) {
        counts.notes += outcome.report.notes;
        counts.items += outcome.importedItems();
        counts.skipped += outcome.report.skipped.size();
    }
    return counts;
}
