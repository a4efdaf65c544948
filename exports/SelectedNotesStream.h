// SPDX-License-Identifier: MIT
#pragma once

#include "exports/NotebookIndex.h"
#include "platform/xml/InputStream.h"

#include <memory>
#include <vector>

// An ENEX file of chosen notes in the order of their choice, put together from the files in which
// they stand while it is read: what frames the notes of the first one's file, and the notes' own
// bytes.
class SelectedNotesStream : public platform::InputStream {
public:
    struct Note {
        std::shared_ptr<const NotebookIndex> index;
        std::size_t number;
    };

    // Without any notes it is an ENEX file that holds none.
    explicit SelectedNotesStream(const std::vector<Note>& notes);
    ~SelectedNotesStream() override;

    [[nodiscard]] bool open(platform::Error* error = nullptr) override;
    // Fails when a file is not, or while it is read does not stay, what it was when its notes were
    // listed.
    [[nodiscard]] qint64 read(char* buffer, qint64 maximumLength,
                              platform::Error* error = nullptr) override;

private:
    // A stretch of bytes of a file, or ones of our own.
    struct Part {
        std::shared_ptr<const NotebookIndex> index;
        qint64 start = 0;
        qint64 length = 0;
        QByteArray bytes;
    };

    void addPart(const std::shared_ptr<const NotebookIndex>& index, qint64 start, qint64 end);
    [[nodiscard]] bool openFile(const Part& part, platform::Error* error);
    [[nodiscard]] bool closeFile(platform::Error* error);
    [[nodiscard]] qint64 readFile(const Part& part, char* buffer, qint64 length,
                                  platform::Error* error);

    std::vector<Part> m_parts;
    std::size_t m_current = 0;
    // Of the current part.
    qint64 m_done = 0;
    int m_descriptor = -1;
    std::shared_ptr<const NotebookIndex> m_opened;
};
