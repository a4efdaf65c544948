// SPDX-License-Identifier: MIT
#pragma once

#include <QtDBus/QDBusArgument>

#include <QDateTime>
#include <QStringList>

namespace platform {

// Notebooks and notes as they cross the bus. The bus has no "none": a list of one or no element
// says it.

struct BusNotebook { // (tsts)
    quint64 identifier = 0;
    QString name;
    quint64 numberOfNotes = 0;
    QString problem; // empty for none
};

struct BusNote { // (tsasaxaxsas)
    quint64 identifier = 0;
    QString title;
    QStringList tags;
    QList<qint64> creationDate; // milliseconds since 1970 in UTC
    QList<qint64> modificationDate;
    QString noteLink;
    QStringList sourceURL;
};

QDBusArgument& operator<<(QDBusArgument& argument, const BusNotebook& notebook);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusNotebook& notebook);
QDBusArgument& operator<<(QDBusArgument& argument, const BusNote& note);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusNote& note);

inline constexpr const char* busNotebooksSignature = "a(tsts)";
inline constexpr const char* busNotesSignature = "a(tsasaxaxsas)";

// Makes lists of both known to the bus's library. Once is enough; any number of times does no harm.
void registerEvernoteRecords();

[[nodiscard]] QList<qint64> busDate(const QDateTime& date);
// Invalid for an empty list.
[[nodiscard]] QDateTime dateFromBus(const QList<qint64>& date);

// An upper bound of what a list takes on the bus, in bytes.
[[nodiscard]] qint64 busSize(const QList<BusNote>& notes);
// The longest array that a message may hold is 64 MiB.
inline constexpr qint64 longestBusList = qint64(64) * 1024 * 1024;

} // namespace platform
