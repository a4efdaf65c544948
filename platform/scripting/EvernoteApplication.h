// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace platform {

// One note of the Evernote application.
class EvernoteNote {
public:
    virtual ~EvernoteNote();

    [[nodiscard]] virtual QString title() = 0;
    // The names of its tags, in the application's order; a name may be empty.
    [[nodiscard]] virtual QStringList tags() = 0;
    // Invalid where the application gives none.
    [[nodiscard]] virtual QDateTime creationDate() = 0;
    [[nodiscard]] virtual QDateTime modificationDate() = 0;
    // An "evernote:" URL whose last path component identifies the note; empty for a note without
    // one.
    [[nodiscard]] virtual QString noteLink() = 0;
    // The address of the page that the note was taken from; null for none.
    [[nodiscard]] virtual QString sourceURL() = 0;
};

// One notebook of the Evernote application.
class EvernoteNotebook {
public:
    virtual ~EvernoteNotebook();

    [[nodiscard]] virtual QString name() = 0;
    // The notebook's notes, fetched whole.
    [[nodiscard]] virtual std::vector<std::shared_ptr<EvernoteNote>> notes() = 0;
    // How many notes it has, for those who show it: cheaper than fetching them where the
    // application can count.
    [[nodiscard]] virtual quint64 numberOfNotes();
    // Why it is listed but its notes cannot be had, or not all of them; none for one that can be
    // read.
    [[nodiscard]] virtual std::optional<Error> problem();
};

// The Evernote application, as its scripting interface offers it.
class EvernoteApplication {
public:
    virtual ~EvernoteApplication();

    [[nodiscard]] virtual QString version() = 0;
    virtual void activate() = 0;
    [[nodiscard]] virtual std::vector<std::shared_ptr<EvernoteNotebook>> notebooks() = 0;

    // What an export writes: a four-character code.
    enum class ExportFormat : quint32 {
        ENEX = 0x656e6578, // 'enex': one file with all the notes
        HTML =
            0x65786874 // 'exht': a folder with one page a note, and the page's resources beside it
    };
    enum class ExportTags { No, Yes };

    // Writes notes to a path; returns when they are written. False with an error when they could
    // not be.
    [[nodiscard]] virtual bool exportNotes(const std::vector<std::shared_ptr<EvernoteNote>>& notes,
                                           const QString& to, ExportTags tags, ExportFormat format,
                                           Error* error = nullptr) = 0;

    // What the person should know of the notes that were exported last, in their language; empty
    // where the application has nothing to say.
    [[nodiscard]] virtual QStringList lastExportWarnings();

    // Why the last thing that it, one of its notebooks or one of their notes was asked for got no
    // answer, or an empty one in its place; none when it got one.
    [[nodiscard]] virtual std::optional<Error> lastError();
};

} // namespace platform
