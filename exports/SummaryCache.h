// SPDX-License-Identifier: MIT
#pragma once

#include "exports/FileIdentity.h"
#include "exports/NotebookSummary.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

// Remembers the summaries of one folder's files from one run of the program to the next, in a
// property list. An entry holds as long as its file is the very same one; files with a problem are
// not remembered, so that they are looked at again each time. A cache that is damaged or cannot be
// written costs time alone.
class SummaryCache {
public:
    // path: of the property list; it need not be there.
    explicit SummaryCache(QString path);

    // The cache for a folder of exports, in the user's caches.
    [[nodiscard]] static QString pathForFolder(const QString& directory);

    [[nodiscard]] std::optional<NotebookSummary> summary(const QString& file,
                                                         const FileIdentity& identity) const;
    void insert(const QString& file, const FileIdentity& identity, const NotebookSummary& summary);

    // Forgets every other file, and writes the list when anything in it has changed.
    void save(const QStringList& files);

private:
    struct Entry {
        FileIdentity identity;
        NotebookSummary summary;
    };

    void load();

    QString m_path;
    QHash<QString, Entry> m_entries;
    bool m_isChanged = false;
};
