// SPDX-License-Identifier: MIT
#include "exports/SelectedNotesStream.h"

#include "exports/ExportsErrors.h"
#include "platform/files/FileManager.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

using platform::Error;

namespace {

const QByteArray documentWithoutNotes =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE en-export SYSTEM \"http://xml.evernote.com/pub/evernote-export3.dtd\">\n"
    "<en-export></en-export>\n";

} // namespace

SelectedNotesStream::SelectedNotesStream(const std::vector<Note>& notes)
{
    if (notes.empty()) {
        m_parts.push_back({nullptr, 0, documentWithoutNotes.size(), documentWithoutNotes});
        return;
    }
    const std::shared_ptr<const NotebookIndex> frame = notes.front().index;
    addPart(frame, 0, frame->notes().front().start);
    for (const Note& note : notes) {
        const NotebookIndex::Note& place = note.index->notes()[note.number];
        addPart(note.index, place.start, place.end);
    }
    addPart(frame, frame->notes().back().end, frame->notesIdentity().size);
}

SelectedNotesStream::~SelectedNotesStream()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void SelectedNotesStream::addPart(const std::shared_ptr<const NotebookIndex>& index, qint64 start,
                                  qint64 end)
{
    // Neighbours are read in one go.
    if (!m_parts.empty() && m_parts.back().index == index &&
        m_parts.back().start + m_parts.back().length == start)
        m_parts.back().length += end - start;
    else
        m_parts.push_back({index, start, end - start, {}});
}

bool SelectedNotesStream::open(Error* error)
{
    m_current = 0;
    m_done = 0;
    return !m_parts.front().index || openFile(m_parts.front(), error);
}

bool SelectedNotesStream::openFile(const Part& part, Error* error)
{
    if (m_opened == part.index)
        return true;
    if (!closeFile(error))
        return false;
    const QString& path = part.index->notesPath();
    m_descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_descriptor < 0) {
        const int reason = errno;
        platform::setError(error, platform::fileError(platform::FileAccess::Read, path, reason));
        return false;
    }
    m_opened = part.index;
    if (FileIdentity::ofDescriptor(m_descriptor) == part.index->notesIdentity())
        return true;
    platform::setError(error, fileChangedError(part.index->path()));
    return false;
}

bool SelectedNotesStream::closeFile(Error* error)
{
    if (m_descriptor < 0)
        return true;
    const bool isSame = FileIdentity::ofDescriptor(m_descriptor) == m_opened->notesIdentity();
    ::close(std::exchange(m_descriptor, -1));
    const auto closed = std::exchange(m_opened, nullptr);
    if (!isSame)
        platform::setError(error, fileChangedError(closed->path()));
    return isSame;
}

qint64 SelectedNotesStream::read(char* buffer, qint64 maximumLength, Error* error)
{
    while (m_current < m_parts.size() && m_done == m_parts[m_current].length) {
        ++m_current;
        m_done = 0;
    }
    if (m_current == m_parts.size())
        return closeFile(error) ? 0 : -1;
    const Part& part = m_parts[m_current];
    const qint64 wanted = std::min(maximumLength, part.length - m_done);
    if (!part.index) {
        std::memcpy(buffer, part.bytes.constData() + m_done, static_cast<std::size_t>(wanted));
        m_done += wanted;
        return wanted;
    }
    const qint64 length = openFile(part, error) ? readFile(part, buffer, wanted, error) : -1;
    if (length > 0)
        m_done += length;
    return length;
}

qint64 SelectedNotesStream::readFile(const Part& part, char* buffer, qint64 length, Error* error)
{
    ssize_t done = 0;
    do {
        done = ::pread(m_descriptor, buffer, static_cast<std::size_t>(length), part.start + m_done);
    } while (done < 0 && errno == EINTR);
    if (done > 0)
        return done;
    const int reason = errno;
    // An end before the part's end: the file is shorter than it was.
    platform::setError(error, done == 0 ? fileChangedError(part.index->path())
                                        : platform::fileError(platform::FileAccess::Read,
                                                              part.index->notesPath(), reason));
    return -1;
}
