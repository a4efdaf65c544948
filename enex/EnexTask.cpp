// SPDX-License-Identifier: MIT
#include "enex/EnexTask.h"

#include "enex/TimeStamp.h"
#include "platform/core/LocalizedStrings.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QStringList>
#include <QTimeZone>

using platform::localizedString;

namespace {

// What Evernote writes for a task that is due on no day: the last moment that its clock can count
// to.
constexpr char noMoment[] = "2757600913T000000Z";

// A zone's name becomes a file's name where zones are looked up, so a path that leads elsewhere is
// none.
bool isZoneName(const QByteArray& name)
{
    static const QRegularExpression form(
        QStringLiteral("\\A[A-Za-z0-9_+-]{1,32}(/[A-Za-z0-9_+-]{1,32}){0,3}\\z"));
    return form.match(QString::fromUtf8(name)).hasMatch();
}

} // namespace

QString EnexTask::Moment::text() const
{
    if (stamp.isEmpty() || stamp == noMoment)
        return {};
    const std::optional<QDateTime> date = utcDateFromTimeStamp(QString::fromUtf8(stamp));
    if (!date)
        return QString::fromUtf8(stamp);
    const QTimeZone zone = isZoneName(timeZone) ? QTimeZone(timeZone) : QTimeZone();
    // The day's end somewhere else may be another day in UTC: without a zone the moment is told
    // whole.
    if (!zone.isValid())
        return date->toString(QStringLiteral("yyyy-MM-dd HH:mm")) + QStringLiteral(" UTC");
    return date->toTimeZone(zone).toString(
        option == "date_only" ? QStringLiteral("yyyy-MM-dd") : QStringLiteral("yyyy-MM-dd HH:mm"));
}

QString EnexTask::text() const
{
    QStringList details;
    if (const QString day = due.text(); !day.isEmpty())
        details += localizedString("Due: %1").arg(day);
    for (const Moment& reminder : reminders) {
        if (const QString moment = reminder.text(); !moment.isEmpty())
            details += localizedString("Reminder: %1").arg(moment);
    }
    if (!recurrence.isEmpty())
        details += localizedString("Repeats: %1").arg(QString::fromUtf8(recurrence));
    if (flag == "true")
        details += localizedString("Flagged");
    const QString shownTitle = QString::fromUtf8(title);
    return details.isEmpty()
               ? shownTitle
               : shownTitle + QStringLiteral(" (%1)").arg(details.join(QStringLiteral("; ")));
}
