// SPDX-License-Identifier: MIT
#pragma once

#include "exports/FileIdentity.h"
#include "platform/core/Error.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class QTemporaryFile;

// What is known of a notebook's notes without holding their content: their properties, and where in
// the file each stands. It is of one state of the file.
class NotebookIndex {
public:
    struct Note {
        QString title;
        QStringList tags;
        // Invalid where the note has none.
        QDateTime created;
        QDateTime updated;
        // Null where the note has none.
        QString sourceURL;
        // Offsets in bytes: of the note's first byte, and of the one behind its last.
        qint64 start = 0;
        qint64 end = 0;
    };

    // Null with an error when the file cannot be read to its end, or changed meanwhile.
    [[nodiscard]] static std::shared_ptr<const NotebookIndex>
    ofFile(const QString& path, platform::Error* error = nullptr);
    ~NotebookIndex();

    [[nodiscard]] const std::vector<Note>& notes() const { return m_notes; }
    // The notebook's file.
    [[nodiscard]] const QString& path() const { return m_path; }
    // The file in which the notes stand at their offsets: the notebook's own, or, where that is
    // written in a way in which they cannot be found, a private copy in the usual one.
    [[nodiscard]] const QString& notesPath() const;
    // Of that file.
    [[nodiscard]] const FileIdentity& notesIdentity() const { return m_notesIdentity; }

private:
    explicit NotebookIndex(QString path);
    [[nodiscard]] bool findNotes(platform::Error* error);
    [[nodiscard]] bool copyFile(platform::Error* error);
    [[nodiscard]] bool readProperties(platform::Error* error);

    QString m_path;
    std::unique_ptr<QTemporaryFile> m_copy;
    QString m_copyPath;
    FileIdentity m_notesIdentity;
    std::vector<Note> m_notes;
};
