// SPDX-License-Identifier: MIT
#include "platform/dbus/EvernoteRecords.h"

#include <QtDBus/QDBusMetaType>

#include <numeric>

namespace platform {

namespace {

// Of a text: its length, its bytes, its end, and what aligns the next value.
qint64 sizeOf(const QString& text)
{
    return text.toUtf8().size() + 16;
}

qint64 sizeOf(const QStringList& texts)
{
    return std::accumulate(texts.begin(), texts.end(), qint64(8),
                           [](qint64 sum, const QString& text) { return sum + sizeOf(text); });
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const BusNotebook& notebook)
{
    argument.beginStructure();
    argument << qulonglong(notebook.identifier) << notebook.name
             << qulonglong(notebook.numberOfNotes) << notebook.problem;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusNotebook& notebook)
{
    argument.beginStructure();
    argument >> notebook.identifier >> notebook.name >> notebook.numberOfNotes >> notebook.problem;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusNote& note)
{
    argument.beginStructure();
    argument << qulonglong(note.identifier) << note.title << note.tags << note.creationDate
             << note.modificationDate << note.noteLink << note.sourceURL;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusNote& note)
{
    argument.beginStructure();
    argument >> note.identifier >> note.title >> note.tags >> note.creationDate >>
        note.modificationDate >> note.noteLink >> note.sourceURL;
    argument.endStructure();
    return argument;
}

void registerEvernoteRecords()
{
    qDBusRegisterMetaType<BusNotebook>();
    qDBusRegisterMetaType<QList<BusNotebook>>();
    qDBusRegisterMetaType<BusNote>();
    qDBusRegisterMetaType<QList<BusNote>>();
}

QList<qint64> busDate(const QDateTime& date)
{
    return date.isValid() ? QList<qint64>{date.toMSecsSinceEpoch()} : QList<qint64>();
}

QDateTime dateFromBus(const QList<qint64>& date)
{
    return date.isEmpty() ? QDateTime()
                          : QDateTime::fromMSecsSinceEpoch(date.constFirst(), Qt::UTC);
}

qint64 busSize(const QList<BusNote>& notes)
{
    return std::accumulate(notes.begin(), notes.end(), qint64(0),
                           [](qint64 sum, const BusNote& note) {
                               return sum + 64 + sizeOf(note.title) + sizeOf(note.tags) +
                                      sizeOf(note.noteLink) + sizeOf(note.sourceURL);
                           });
}

} // namespace platform
