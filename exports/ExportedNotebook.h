// SPDX-License-Identifier: MIT
#pragma once

#include "exports/ExportFiles.h"
#include "exports/FileIdentity.h"
#include "exports/NotebookIndex.h"
#include "exports/NotebookSummary.h"
#include "platform/scripting/EvernoteApplication.h"

#include <QStringList>

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

class ExportedNotebook;

// Why the last question to a folder of exports had no answer; for every thread.
class LastError {
public:
    void set(const std::optional<platform::Error>& error);
    [[nodiscard]] std::optional<platform::Error> get() const;

private:
    mutable std::mutex m_mutex;
    std::optional<platform::Error> m_error;
};

// The notebooks of one listing. They are looked at together, several at a time, when the first of
// them is asked what it holds: those that somebody still has by then, as who wants one wants all
// that they kept.
class NotebookListing {
public:
    // cachePath: of the summaries of earlier listings.
    NotebookListing(const QString& cachePath, const std::vector<ExportFile>& files);

    void add(const std::shared_ptr<ExportedNotebook>& notebook);
    // On any thread; returns when it is done.
    void readSummaries();

private:
    QString m_cachePath;
    QStringList m_files;
    std::vector<std::weak_ptr<ExportedNotebook>> m_notebooks;
    std::once_flag m_isRead;
};

// A note of an ENEX file, as the file was when its notes were listed.
class ExportedNote : public platform::EvernoteNote {
public:
    ExportedNote(std::shared_ptr<const NotebookIndex> index, std::size_t number)
        : m_index(std::move(index))
        , m_number(number)
    {
    }

    [[nodiscard]] QString title() override { return note().title; }
    [[nodiscard]] QStringList tags() override { return note().tags; }
    [[nodiscard]] QDateTime creationDate() override { return note().created; }
    [[nodiscard]] QDateTime modificationDate() override { return note().updated; }
    // None: a file does not say which identifiers its notes had.
    [[nodiscard]] QString noteLink() override { return {}; }
    [[nodiscard]] QString sourceURL() override { return note().sourceURL; }

    [[nodiscard]] const std::shared_ptr<const NotebookIndex>& index() const { return m_index; }
    [[nodiscard]] std::size_t number() const { return m_number; }

private:
    [[nodiscard]] const NotebookIndex::Note& note() const { return m_index->notes()[m_number]; }

    std::shared_ptr<const NotebookIndex> m_index;
    std::size_t m_number;
};

// An ENEX file as a notebook.
class ExportedNotebook : public platform::EvernoteNotebook {
public:
    ExportedNotebook(ExportFile file, std::shared_ptr<NotebookListing> listing,
                     std::shared_ptr<LastError> lastError);

    [[nodiscard]] QString name() override { return m_file.name; }
    // Reads the file anew; empty with the application's lastError() when that cannot be done.
    [[nodiscard]] std::vector<std::shared_ptr<platform::EvernoteNote>> notes() override;
    [[nodiscard]] quint64 numberOfNotes() override { return summary().notes; }
    [[nodiscard]] std::optional<platform::Error> problem() override { return summary().problem; }

    [[nodiscard]] const QString& path() const { return m_file.path; }

private:
    friend class NotebookListing;
    struct Read {
        FileIdentity identity;
        NotebookSummary summary;
    };

    // Of the file as it is now.
    [[nodiscard]] NotebookSummary summary();

    ExportFile m_file;
    std::shared_ptr<NotebookListing> m_listing;
    std::shared_ptr<LastError> m_lastError;
    // Set once, by the listing.
    std::optional<Read> m_read;
};
