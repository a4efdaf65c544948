// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// A task of a note, as today's Evernote writes it beside the body. All texts are the file's, in
// UTF-8.
struct EnexTask {
    // A moment: YYYYMMDDThhmmssZ in UTC, the zone in which it was chosen, and whether its day alone
    // counts
    // ("date_only").
    struct Moment {
        QByteArray stamp;
        QByteArray option;
        QByteArray timeZone;

        // The day, or the day and the minute, in the moment's own zone: "2022-05-28", "2022-05-22
        // 09:00". In UTC, which the text then names, where the zone is missing or unknown. Empty
        // for no moment, which the application also writes as the last day that it can count to; a
        // stamp in another form as it stands.
        [[nodiscard]] QString text() const;
    };

    QByteArray title;
    // "open" or "completed".
    QByteArray status;
    // The group that the task stands in; the body says where that is.
    QByteArray group;
    // Where it stands in its group, ascending by bytes.
    QByteArray sortWeight;
    QByteArray flag;
    QByteArray recurrence;
    Moment due;
    std::vector<Moment> reminders;

    [[nodiscard]] bool isCompleted() const { return status == "completed"; }

    // The title and behind it, in brackets, what else is known, in the user's language.
    [[nodiscard]] QString text() const;
};
