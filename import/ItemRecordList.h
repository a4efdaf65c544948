// SPDX-License-Identifier: MIT
#pragma once

#include "platform/scripting/ImportManifest.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// Item records, packed: a run keeps one of each note until its end. As maps of variants, with the copies that the
// manifest needs, they took some 3,500 bytes a note; packed, one takes about 300. Copies of a list share the records.
class ItemRecordList {
public:
    [[nodiscard]] qsizetype size() const { return m_records.size(); }
    [[nodiscard]] bool isEmpty() const { return m_records.isEmpty(); }

    // The list takes the record as it is now; what is put into it later is not in the list.
    void append(const platform::manifest::Record& record);

    // The files in the folder of one path, and in folders below it, now lie in that of another.
    void moveFolder(const QString& from, const QString& to);

    // A record of the caller's own, made anew: equal to the one that was appended, with dates in UTC and
    // integers as 64 bits wide.
    [[nodiscard]] platform::manifest::Record at(qsizetype position) const;
    [[nodiscard]] platform::manifest::Record operator[](qsizetype position) const { return at(position); }

private:
    QList<QByteArray> m_records;
    // Where the items' files are. Those of a notebook share one folder.
    QStringList m_folders;
};
